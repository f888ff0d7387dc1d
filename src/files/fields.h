#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "record/design_record.h"

namespace torvale {

// Text files as a sequence of fields: records of one or more fields, a comma between them, CR LF at their end.

// Reads one field after the other; a comma and a line end (CR LF, CR or LF) count the same. A text that begins with a
// double quote runs to the next one, commas and line ends included, and what follows up to the field's end is dropped.
// Throws FileFault: kPastTheEnd where no field is left (an empty one at the very end counts as none), kWrongKind where
// the field is no number of the form asked for, kOutOfBounds where it does not fit.
class FieldReader {
 public:
  // `text` is UTF-8.
  explicit FieldReader(std::string text) : text_(std::move(text)) {}

  std::string Text();
  std::int16_t Integer();  // rounded half to even; an empty field gives 0, here and below
  float Number32();
  double Number64();
  FreeValue Free();  // an empty field is unset
  bool AtEnd() const { return place_ >= text_.size(); }

 private:
  std::string_view NumberField();
  double Number();
  void SkipToNext();

  std::string text_;
  std::size_t place_ = 0;
};

// Builds such a file. Numbers are written in the general form.
class FieldWriter {
 public:
  FieldWriter& Text(std::string_view text);  // between double quotes, nothing inside is escaped
  FieldWriter& Integer(int value);
  FieldWriter& Number32(float value);
  FieldWriter& Number64(double value);
  FieldWriter& Free(const FreeValue& value);
  void EndRecord();

  const std::string& text() const { return text_; }

 private:
  FieldWriter& Plain(std::string_view text);

  std::string text_;
  bool first_ = true;  // in its record
};

}  // namespace torvale

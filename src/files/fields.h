// Text files as a sequence of fields: records of one or more fields, a comma between them, CR LF at their end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "record/design_record.h"

namespace torvale {

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
  // Whether nothing but blanks and line ends is left.
  bool OnlyBlanksLeft() const;
  // Whether the next field is a quoted text.
  bool AtQuotedText() const { return !AtEnd() && text_[place_] == '"'; }

 private:
  std::string_view NumberField();
  double Number();
  void SkipToNext();

  std::string text_;
  std::size_t place_ = 0;
};

// A text as it comes back from a text field of a file.
std::string AsTextField(std::string_view text);

// Builds such a file. Numbers are written in the general form.
class FieldWriter {
 public:
  // Between double quotes. Nothing inside can be escaped, so a quote in the text goes out as a closing quotation mark.
  FieldWriter& Text(std::string_view text);
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

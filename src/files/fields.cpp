#include "files/fields.h"

#include <algorithm>
#include <optional>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "files/file_fault.h"

namespace torvale {
namespace {

constexpr std::string_view kFieldEnds = ",\r\n";

// A value that its field can't hold.
template <typename Store>
auto Stored(Store store) {
  try {
    return store();
  } catch (const RunTimeFault&) {
    throw FileFault{kOutOfBounds};
  }
}

}  // namespace

std::string AsTextField(std::string_view text) {
  constexpr std::string_view kClosingMark = "\u201D";
  std::string field;
  field.reserve(text.size());
  for (const char c : text) {
    if (c == '"') {
      field.append(kClosingMark);
    } else {
      field.push_back(c);
    }
  }
  return field;
}

bool FieldReader::OnlyBlanksLeft() const {
  return text_.find_first_not_of(" \t\r\n", place_) == std::string::npos;
}

void FieldReader::SkipToNext() {
  const std::size_t end = text_.find_first_of(kFieldEnds, place_);
  if (end == std::string::npos) {
    place_ = text_.size();
    return;
  }
  place_ = text_.compare(end, 2, "\r\n") == 0 ? end + 2 : end + 1;
}

std::string FieldReader::Text() {
  if (AtEnd()) throw FileFault{kPastTheEnd};
  const bool quoted = text_[place_] == '"';
  const std::size_t begin = quoted ? place_ + 1 : place_;
  const std::size_t end =
      std::min(quoted ? text_.find('"', begin) : text_.find_first_of(kFieldEnds, begin), text_.size());
  std::string field = text_.substr(begin, end - begin);
  place_ = quoted ? std::min(end + 1, text_.size()) : end;
  SkipToNext();
  return field;
}

std::string_view FieldReader::NumberField() {
  if (AtEnd()) throw FileFault{kPastTheEnd};
  const std::size_t begin = place_;
  const std::size_t end = std::min(text_.find_first_of(kFieldEnds, begin), text_.size());
  SkipToNext();
  return std::string_view(text_).substr(begin, end - begin);
}

FreeValue FieldReader::Free() {
  const std::string field = Trim(NumberField());
  if (field.empty()) return std::nullopt;
  if (!IsNumber(field)) throw FileFault{kWrongKind};
  return Stored([&] { return Finite(Val(field)); });
}

double FieldReader::Number() {
  return torvale::Number(Free());
}

std::int16_t FieldReader::Integer() {
  const double value = Number();
  return Stored([&] { return StoreInt16(value); });
}

float FieldReader::Number32() {
  const double value = Number();
  return Stored([&] { return Store32(value); });
}

double FieldReader::Number64() {
  const double value = Number();
  return Stored([&] { return Finite(value); });
}

FieldWriter& FieldWriter::Plain(std::string_view text) {
  if (!first_) text_.push_back(',');
  first_ = false;
  text_.append(text);
  return *this;
}

FieldWriter& FieldWriter::Text(std::string_view text) {
  return Plain('"' + AsTextField(text) + '"');
}

FieldWriter& FieldWriter::Integer(int value) {
  return Plain(GeneralText(value));
}

FieldWriter& FieldWriter::Number32(float value) {
  return Plain(GeneralText(value));
}

FieldWriter& FieldWriter::Number64(double value) {
  return Plain(GeneralText(value));
}

FieldWriter& FieldWriter::Free(const FreeValue& value) {
  return Plain(value ? GeneralText(*value) : std::string());
}

void FieldWriter::EndRecord() {
  text_.append("\r\n");
  first_ = true;
}

}  // namespace torvale

#include "files/preferences.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"

namespace torvale {
namespace {

constexpr std::size_t kSurveyKind = 9;
constexpr std::size_t kGateShape = 11;

void txtDefault_Change(Program& program, std::size_t index) {
  ApplyCoefficients(program);
  if (index != kSurveyKind && index != kGateShape) return;
  TextField& field = program.main.txtDefault[index];
  field.Set(UpperCase(std::string(field.text())));
}

// The fields of a text file, one after the other. A field ends at a comma, CR LF, CR or LF; an empty one at the end of
// the file is past the end.
class FieldReader {
 public:
  explicit FieldReader(std::string text) : text_(std::move(text)) {}

  std::optional<std::string> Next() {
    if (place_ >= text_.size()) return std::nullopt;
    const std::size_t end = std::min(text_.find_first_of(",\r\n", place_), text_.size());
    std::string field = text_.substr(place_, end - place_);
    place_ = text_.compare(end, 2, "\r\n") == 0 ? end + 2 : end + 1;
    return field;
  }

 private:
  std::string text_;
  std::size_t place_ = 0;
};

// Fields 2 to 6 are amounts and are shown with two decimals.
std::string AsShown(std::size_t index, const std::string& field) {
  return index >= 2 && index <= 6 ? FormatText(field, "0.00") : field;
}

}  // namespace

void ConnectPreferences(Program& program) {
  for (std::size_t i = 0; i < program.main.txtDefault.size(); ++i) {
    program.main.txtDefault[i].on_change = [&program, i] { txtDefault_Change(program, i); };
  }
}

void ApplyCoefficients(Program& program) {
  program.record.DischargeCoef = Store32(Val(program.main.txtDefault[2].text()));
  program.record.HazenWilliamsC = Store32(Val(program.main.txtDefault[3].text()));
}

void ReadDefaultsFile(Program& program) {
  std::ifstream file(std::filesystem::path(program.host.ProgramFolder()) / kDefaultsFile, std::ios::binary);
  if (!file) return;
  FieldReader reader({std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()});
  for (std::size_t i = 0; i < program.main.txtDefault.size(); ++i) {
    const std::optional<std::string> field = reader.Next();
    if (!field) return;
    try {
      program.main.txtDefault[i].Set(AsShown(i, *field));
    } catch (const RunTimeFault&) {
      // A value that its place can't hold is passed over; the next field is read as if nothing had been.
    }
  }
}

}  // namespace torvale

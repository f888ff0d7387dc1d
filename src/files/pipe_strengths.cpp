#include "files/pipe_strengths.h"

#include <array>
#include <cerrno>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "base/numbers.h"
#include "files/file_fault.h"
#include "files/file_store.h"
#include "screen/message_box.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr std::size_t kFigures = 3;

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::string WithoutQuotes(std::string_view part) {
  std::string text = Trim(part);
  if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = Trim(text.substr(1, text.size() - 2));
  return text;
}

// What is wrong with a line, as a sentence; empty where its pipe was taken.
std::string TakeLine(std::string_view line, PipeStrengths& strengths) {
  const std::vector<std::string_view> parts = Split(line, ',');
  if (parts.size() != kFigures) return "It must have a diameter, a thickness in mils and a head, with commas between.";
  std::array<double, kFigures> figures{};
  for (std::size_t i = 0; i < kFigures; ++i) {
    const std::string text = WithoutQuotes(parts[i]);
    figures.at(i) = IsNumber(text) ? Val(text) : 0;
    if (!(figures.at(i) > 0)) return "\u201C" + text + "\u201D is no number above 0.";
  }
  const PipeStrength pipe{figures[0], figures[1], figures[2]};
  if (SafeHead(strengths, pipe.diameter, pipe.mil)) return "The pipe stands further up already.";
  strengths.push_back(pipe);
  return "";
}

// One message, however many lines are wrong.
void TellLeftOut(Program& program, int line, const std::string& wrong, int others) {
  if (others == 0) return Tell(program, words::kSafeHeadLeftOut(GeneralText(line), wrong));
  Tell(program, words::kSafeHeadsLeftOut(GeneralText(line), GeneralText(others), wrong));
}

void TakeTable(Program& program, std::string_view text) {
  int number = 0;
  int first = 0;
  int left_out = 0;
  std::string wrong_with_first;
  for (const std::string_view line : Split(text, '\n')) {
    ++number;
    const std::string trimmed = Trim(line);
    if (trimmed.empty() || trimmed.front() == '#') continue;
    std::string wrong = TakeLine(trimmed, program.pipe_strengths);
    if (wrong.empty() || left_out++ > 0) continue;
    first = number;
    wrong_with_first = std::move(wrong);
  }
  if (left_out > 0) TellLeftOut(program, first, wrong_with_first, left_out - 1);
}

}  // namespace

void ReadPipeStrengths(Program& program) {
  program.pipe_strengths.clear();
  std::string text;
  const int error = ErrorOf([&] { text = ReadText(InProgramFolder(program.host, kSafeHeadsFile)); });
  if (error == 0) {
    TakeTable(program, text);
  } else if (error != ENOENT && error != ENOTDIR) {
    Tell(program, words::kSafeHeadsNotRead(std::generic_category().message(error)));
  }
}

}  // namespace torvale

#include "screen/status_line.h"

#include "screen/fields.h"

namespace torvale {

void Say(Program& program, const SpokenSentence& sentence) {
  program.main.sbStatusBar.caption = sentence.text();
}

void SayToo(Program& program, const SpokenSentence& sentence) {
  SayAgain(program, sentence.text());
}

void SayAgain(Program& program, const std::string& news) {
  std::string& all = program.main.sbStatusBar.caption;
  if (news.empty()) return;
  if (!all.empty()) all += all.ends_with('.') ? " " : ". ";
  all += news;
}

void SayMark(Program& program, const Control& control) {
  program.main.sbStatusBar.caption = control.mark;
}

void ForgetNews(Program& program) {
  program.main.sbStatusBar.caption.clear();
  for (const Figure::Index figure : kWarningFigures) program.main.frmDisplayLbl[figure].mark.clear();
}

const std::string& News(const Program& program) {
  return program.main.sbStatusBar.caption;
}

}  // namespace torvale

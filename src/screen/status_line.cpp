#include "screen/status_line.h"

#include <utility>

namespace torvale {

void Say(Program& program, std::string sentence) {
  program.main.sbStatusBar.caption = std::move(sentence);
}

void SayToo(Program& program, const std::string& sentence) {
  std::string& news = program.main.sbStatusBar.caption;
  if (!news.empty()) news += news.ends_with('.') ? " " : ". ";
  news += sentence;
}

void ForgetNews(Program& program) {
  program.main.sbStatusBar.caption.clear();
}

}  // namespace torvale

#include "qt/tips.h"

#include "qt/scale.h"

namespace torvale {

std::string InLines(std::initializer_list<std::string_view> texts) {
  std::string lines;
  for (const std::string_view text : texts) {
    if (!lines.empty() && !text.empty()) lines += '\n';
    lines += text;
  }
  return lines;
}

QString TipText(std::string_view text) {
  if (text.empty()) return {};
  return "<p style='white-space: pre-wrap'>" + ToQt(text).toHtmlEscaped() + "</p>";
}

}  // namespace torvale

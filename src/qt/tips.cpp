#include "qt/tips.h"

#include "qt/to_qt.h"

namespace torvale {

QString TipText(std::string_view text) {
  if (text.empty()) return {};
  return "<p style='white-space: pre-wrap'>" + ToQt(text).toHtmlEscaped() + "</p>";
}

}  // namespace torvale

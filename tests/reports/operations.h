// Looks into the drawing operations of a document.
#pragma once

#include <cmath>
#include <string>
#include <variant>
#include <vector>

#include "screen/document.h"

namespace torvale {

inline constexpr double kNear = 1e-5;  // the position is a 32-bit float, moved some fifty times a page

inline std::vector<PrintedText> Texts(const Document& document) {
  std::vector<PrintedText> texts;
  for (const PrintOperation& operation : document.operations) {
    if (const auto* text = std::get_if<PrintedText>(&operation)) texts.push_back(*text);
  }
  return texts;
}

// The operations of each page.
inline std::vector<std::vector<PrintOperation>> PagesOf(const Document& document) {
  std::vector<std::vector<PrintOperation>> pages(1);
  for (const PrintOperation& operation : document.operations) {
    if (std::holds_alternative<NewPage>(operation)) {
      pages.emplace_back();
    } else {
      pages.back().push_back(operation);
    }
  }
  return pages;
}

// The text that stands at the place, or nothing.
inline std::string TextAt(const Document& document, double x, double y) {
  for (const PrintedText& text : Texts(document)) {
    if (std::fabs(text.x - x) < kNear && std::fabs(text.y - y) < kNear) return text.text;
  }
  return "";
}

inline int LinesAcross(const std::vector<PrintOperation>& page, double y) {
  int count = 0;
  for (const PrintOperation& operation : page) {
    const auto* line = std::get_if<PrintedLine>(&operation);
    if (line != nullptr && line->x1 == 0.1 && line->x2 == 7.9 && std::fabs(line->y1 - y) < kNear) ++count;
  }
  return count;
}

}  // namespace torvale

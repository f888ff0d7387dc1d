#include "reports/phone_picture.h"

#include <algorithm>

#include "base/numbers.h"
#include "reports/document_writer.h"
#include "reports/hole_summary_report.h"

namespace torvale {
namespace {

constexpr double kLeft = 0.3;
constexpr double kRoom = kPageWidth - 2 * kLeft;
constexpr double kSizeRoom = 2.5;
constexpr double kWhere = kLeft + kSizeRoom + 0.1;
constexpr double kRowHeight = 0.95;
constexpr std::size_t kMostRuns = 200;  // a longer picture is more than phones show

void Words(DocumentWriter& writer, double& y, int points, const std::string& text) {
  if (text.empty()) return;
  writer.SetFontSize(points);
  writer.Text(kLeft, y, text, kRoom);
  y += points * 1.3 / 72;
}

void Run(DocumentWriter& writer, double& y, const CrewRun& run) {
  writer.SetDrawWidth(6);
  writer.Box(kLeft - 0.15, y, kPageWidth - kLeft + 0.15, y + kRowHeight - 0.12);
  writer.SetFontSize(30);
  writer.Text(kLeft, y + 0.2, run.size, kSizeRoom);
  writer.SetFontSize(24);
  writer.Text(kWhere, y + 0.06, run.where, kPageWidth - kLeft - kWhere);
  writer.SetFontSize(20);
  writer.Text(kWhere, y + 0.44, run.count, kPageWidth - kLeft - kWhere);
  y += kRowHeight;
}

}  // namespace

Document PhonePicture(const CrewSheet& sheet) {
  DocumentWriter writer((std::string(kHoleSummary)));
  double y = 0.3;
  Words(writer, y, 30, sheet.stale.heading);
  Words(writer, y, 18, sheet.stale.sentence);
  Words(writer, y, 32, sheet.name.empty() ? std::string(kHoleSummary) : sheet.name);
  for (const std::string& text : {sheet.location, sheet.design, sheet.date}) Words(writer, y, 20, text);
  y += 0.15;
  const std::size_t shown = std::min(sheet.runs.size(), kMostRuns);
  for (std::size_t i = 0; i < shown; ++i) Run(writer, y, sheet.runs[i]);
  if (shown < sheet.runs.size()) {
    Words(writer, y, 20,
          "and " + GeneralText(static_cast<int>(sheet.runs.size() - shown)) + " more: see the hole summary on paper");
  }
  y += 0.1;
  for (const std::string& total : sheet.totals) Words(writer, y, 22, total + " in all");
  for (const std::string& spacing : sheet.spacings) Words(writer, y, 20, spacing);
  y += 0.1;
  for (const auto& [label, text] : sheet.figures) Words(writer, y, 20, label + ": " + text);
  return writer.Take();
}

}  // namespace torvale

#include "reports/stale_mark.h"

#include <string_view>
#include <utility>

#include "screen/message_box.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr std::string_view kMarkText = "NOT RE-CALCULATED";

// At the left of the page's number, where no report has anything.
const PrintedText kMark{0.1, 0.2, 12, std::string(kMarkText), false, 2.5};

}  // namespace

bool FiguresAreStale(const Program& program) {
  return program.main.Grid2.control.visible && !program.main.cmdReCalc.mark.empty();
}

void TakeOut(Program& program, const std::function<void()>& work) {
  if (!FiguresAreStale(program) || Ask(program, words::kGoOnWithStaleFigures(program.main.cmdReCalc.mark))) work();
}

std::string StaleHeading(const Program& program) {
  return FiguresAreStale(program) ? std::string(kMarkText) : "";
}

std::string StaleSentence(const Program& program) {
  return FiguresAreStale(program) ? program.main.cmdReCalc.mark : "";
}

void MarkStaleRows(const Program& program, std::vector<std::vector<std::string>>& rows) {
  if (!FiguresAreStale(program)) return;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].push_back(i == 0 ? StaleHeading(program) : i == 1 ? StaleSentence(program) : "");
  }
}

void MarkStalePages(const Program& program, Document& document) {
  if (!FiguresAreStale(program)) return;
  std::vector<PrintOperation> marked = {kMark};
  for (PrintOperation& operation : document.operations) {
    const bool page = std::holds_alternative<NewPage>(operation);
    marked.push_back(std::move(operation));
    if (page) marked.emplace_back(kMark);
  }
  document.operations = std::move(marked);
}

}  // namespace torvale

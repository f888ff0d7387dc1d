#include "reports/stale_mark.h"

#include <utility>

#include "screen/message_box.h"
#include "screen/words.h"

namespace torvale {
namespace {

// At the left of the page's number, where no report has anything.
const PrintedText kMark{0.1, 0.2, 12, "NOT RE-CALCULATED", false, 2.5};

}  // namespace

bool FiguresAreStale(const Program& program) {
  return program.main.Grid2.control.visible && !program.main.cmdReCalc.mark.empty();
}

bool GoOnThoughStale(Program& program) {
  if (!FiguresAreStale(program)) return true;
  return Ask(program, words::kGoOnWithStaleFigures(program.main.cmdReCalc.mark));
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

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "screen/document.h"
#include "screen/program.h"

namespace torvale {

// Figures that are shown may belong to inputs that have been changed since: the mark of Re-Calculate says so.
bool FiguresAreStale(const Program& program);

// Runs `work`, which takes figures off the screen to paper, to a preview or into a file. Where they are stale the user
// is asked first whether to go on.
void TakeOut(Program& program, const std::function<void()>& work);

// What stale figures are headed by wherever they leave the screen, and what they are for; both empty where none are
// stale.
std::string StaleHeading(const Program& program);
std::string StaleSentence(const Program& program);

// Marks every page of a document made of stale figures.
void MarkStalePages(const Program& program, Document& document);

// The same for the rows of a table that goes to a spreadsheet, the first of them its headings: a last column is headed
// by the mark and says in its first row what the figures are for.
void MarkStaleRows(const Program& program, std::vector<std::vector<std::string>>& rows);

}  // namespace torvale

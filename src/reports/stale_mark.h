#pragma once

#include "screen/document.h"
#include "screen/program.h"

namespace torvale {

// Figures that are shown may belong to inputs that have been changed since: the mark of Re-Calculate says so.
bool FiguresAreStale(const Program& program);

// Asks before stale figures leave the screen. True where none are stale, or the user goes on all the same.
bool GoOnThoughStale(Program& program);

// Marks every page of a document made of stale figures.
void MarkStalePages(const Program& program, Document& document);

}  // namespace torvale

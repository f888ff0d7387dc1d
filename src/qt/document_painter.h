#pragma once

#include <QPagedPaintDevice>

#include "screen/document.h"

namespace torvale {

// Letter paper, upright, the whole sheet: what documents are laid out for.
void UseLetterPaper(QPagedPaintDevice& device);

// Draws the document's pages. The texts come out as wide as in the typeface that the layout is made for, whichever
// typeface the desktop has in its place. False where the device takes no drawing.
bool PaintDocument(QPagedPaintDevice& device, const Document& document);

}  // namespace torvale

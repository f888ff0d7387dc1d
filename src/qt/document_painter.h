// Draws documents with the toolkit, onto paper, into a PDF or as a picture.
#pragma once

#include <QImage>
#include <QPagedPaintDevice>

#include "screen/document.h"

namespace torvale {

inline constexpr int kPdfDotsPerInch = 1200;

// Letter paper, upright, the whole sheet: what documents are laid out for.
void UseLetterPaper(QPagedPaintDevice& device);

// Draws the document's pages. The texts come out as wide as in the typeface that the layout is made for, whichever
// typeface the desktop has in its place. False where the device takes no drawing.
bool PaintDocument(QPagedPaintDevice& device, const Document& document);

// The document's first page as a picture on white, as wide as the sheet and as long as what stands on it.
QImage PictureOf(const Document& document);

}  // namespace torvale

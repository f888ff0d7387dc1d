#include "batch/pdf_writer.h"

#include <hpdf.h>

#include <algorithm>
#include <memory>
#include <variant>
#include <vector>

#include "base/arithmetic.h"
#include "files/code_page.h"
#include "reports/paper.h"

namespace torvale {
namespace {

constexpr const char* kTypeface = "Helvetica";
constexpr const char* kEncoding = "WinAnsiEncoding";
constexpr char kEllipsis = '\x85';  // in that encoding
constexpr double kWidthUnit = 1000;
constexpr std::size_t kBlock = 65536;

struct Closer {
  void operator()(HPDF_Doc file) const { HPDF_Free(file); }
};
using File = std::unique_ptr<_HPDF_Doc_Rec, Closer>;

// The library keeps the first error itself and does nothing after it; it is asked for at the end.
void HPDF_STDCALL PassOver(HPDF_STATUS /*error*/, HPDF_STATUS /*detail*/, void* /*unused*/) {}

double X(double inches) {
  return (inches + kPageLeft) * kPointsPerInch;
}

// From the foot of the sheet.
double Y(double inches) {
  return (kSheetHeight - inches) * kPointsPerInch;
}

// A text as it is drawn, in points.
struct PlacedText {
  std::string words;  // in the encoding of the typeface
  int points;
  double x;
  double foot;
  double width;
  double narrowing;
};

class Drawing {
 public:
  Drawing(HPDF_Page page, HPDF_Font font) : page_(page), font_(font) {}

  // Texts lie over the lines: a rule that would run into a word ends ahead of it.
  void Draw(Operations operations) {
    HPDF_Page_SetLineCap(page_, HPDF_PROJECTING_SCUARE_END);
    HPDF_Page_SetLineJoin(page_, HPDF_MITER_JOIN);
    const LongestLines lines(operations);
    std::vector<PlacedText> texts;
    for (const PrintOperation& operation : operations) {
      if (const auto* line = std::get_if<PrintedLine>(&operation); line != nullptr && lines.Has(*line)) Draw(*line);
      if (const auto* box = std::get_if<PrintedBox>(&operation)) Draw(*box);
      if (const auto* text = std::get_if<PrintedText>(&operation)) texts.push_back(Place(*text));
    }
    HPDF_Page_SetGrayFill(page_, 1);
    for (const PlacedText& text : texts) Ground(text);
    HPDF_Page_SetGrayFill(page_, 0);
    for (const PlacedText& text : texts) Draw(text);
  }

 private:
  double WidthOf(const std::string& words, int points) const {
    const auto width = HPDF_Font_TextWidth(font_, reinterpret_cast<const HPDF_BYTE*>(words.data()),
                                           static_cast<HPDF_UINT>(words.size()));
    return static_cast<double>(width.width) * points / kWidthUnit;
  }

  // The text without its middle, as much of it as a width takes.
  std::string Shortened(const std::string& words, int points, double room) const {
    for (std::size_t kept = words.size(); kept > 0; --kept) {
      const std::size_t tail = kept / 2;
      std::string shorter = words.substr(0, kept - tail) + kEllipsis + words.substr(words.size() - tail);
      if (WidthOf(shorter, points) <= room) return shorter;
    }
    return std::string(1, kEllipsis);
  }

  PlacedText Place(const PrintedText& text) const {
    PlacedText placed{ToCodePage(text.text), text.points, X(text.x), 0, 0, 1};
    placed.width = WidthOf(placed.words, text.points);
    const double room = text.room * kPointsPerInch;
    if (room > 0 && placed.width > room) {
      if (placed.width > room / kNarrowest) placed.words = Shortened(placed.words, text.points, room / kNarrowest);
      placed.width = WidthOf(placed.words, text.points);
      placed.narrowing = std::min(1.0, room / placed.width);
      placed.width = std::min(placed.width, room);
    }
    if (text.centred) placed.x -= placed.width / 2;
    placed.foot = Y(text.y) - kAscent * text.points;
    return placed;
  }

  void Ground(const PlacedText& text) {
    HPDF_Page_Rectangle(page_, Narrow(text.x), Narrow(text.foot - kDescent * text.points), Narrow(text.width),
                        Narrow((kCapitals + kDescent) * text.points));
    HPDF_Page_Fill(page_);
  }

  void Draw(const PlacedText& text) {
    HPDF_Page_BeginText(page_);
    HPDF_Page_SetFontAndSize(page_, font_, static_cast<float>(text.points));
    HPDF_Page_SetHorizontalScalling(page_, Narrow(text.narrowing * 100));
    HPDF_Page_TextOut(page_, Narrow(text.x), Narrow(text.foot), text.words.c_str());
    HPDF_Page_EndText(page_);
  }

  void Draw(const PrintedLine& line) {
    UsePen(line.width);
    HPDF_Page_MoveTo(page_, Narrow(X(line.x1)), Narrow(Y(line.y1)));
    HPDF_Page_LineTo(page_, Narrow(X(line.x2)), Narrow(Y(line.y2)));
    HPDF_Page_Stroke(page_);
  }

  void Draw(const PrintedBox& box) {
    UsePen(box.width);
    HPDF_Page_Rectangle(page_, Narrow(X(box.x1)), Narrow(Y(box.y2)), Narrow(X(box.x2) - X(box.x1)),
                        Narrow(Y(box.y1) - Y(box.y2)));
    HPDF_Page_Stroke(page_);
  }

  void UsePen(int width) { HPDF_Page_SetLineWidth(page_, Narrow(width * kDrawWidth * kPointsPerInch)); }

  HPDF_Page page_;
  HPDF_Font font_;
};

std::optional<std::string> Bytes(HPDF_Doc file) {
  if (HPDF_SaveToStream(file) != HPDF_OK || HPDF_GetError(file) != HPDF_OK) return std::nullopt;
  HPDF_ResetStream(file);
  std::string bytes;
  std::vector<HPDF_BYTE> block(kBlock);
  for (;;) {
    auto size = static_cast<HPDF_UINT32>(block.size());
    HPDF_ReadFromStream(file, block.data(), &size);
    if (size == 0) return bytes;
    bytes.append(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(size));
  }
}

}  // namespace

std::optional<std::string> PdfOf(const Document& document) {
  const File file(HPDF_New(PassOver, nullptr));
  if (!file) return std::nullopt;
  HPDF_SetCompressionMode(file.get(), HPDF_COMP_ALL);
  HPDF_SetInfoAttr(file.get(), HPDF_INFO_TITLE, ToCodePage(document.title).c_str());
  HPDF_Font font = HPDF_GetFont(file.get(), kTypeface, kEncoding);
  for (const Operations page : PagesOf(document)) {
    HPDF_Page sheet = HPDF_AddPage(file.get());
    HPDF_Page_SetSize(sheet, HPDF_PAGE_SIZE_LETTER, HPDF_PAGE_PORTRAIT);
    Drawing(sheet, font).Draw(page);
  }
  return Bytes(file.get());
}

}  // namespace torvale

#include "screen/desk.h"

#include <algorithm>

namespace torvale {
namespace {

constexpr Place kAnywhere = {0, 0, 14000, 2000};  // a window gives the sections their places

constexpr ControlRow<DeskScreen> kRows[] = {
    rows::Frame<&DeskScreen::frmComparison>("frmComparison", kAnywhere, "Designs Side by Side", {.visible = false}),
    rows::Row<&DeskScreen::Comparison, rows::kWhole>(ControlKind::kGrid, "Comparison", "frmComparison", kAnywhere, "",
                                                     "", {.spoken = "Designs side by side"}),
    rows::Label<&DeskScreen::lblComparisonWords>("lblComparisonWords", "frmComparison", kAnywhere),
    rows::Button<&DeskScreen::btnCloseComparison>("btnCloseComparison", "frmComparison", kAnywhere, "Close",
                                                  "Close the comparison of designs"),
    rows::Frame<&DeskScreen::frmRemarks>("frmRemarks", kAnywhere, "Remarks on the Survey", {.visible = false}),
    rows::Row<&DeskScreen::SurveyRemarks, rows::kWhole>(ControlKind::kGrid, "SurveyRemarks", "frmRemarks", kAnywhere,
                                                        "", "", {.spoken = "Remarks on the survey"}),
    rows::Button<&DeskScreen::btnCloseRemarks>("btnCloseRemarks", "frmRemarks", kAnywhere, "Close",
                                               "Close the remarks on the survey"),
    rows::Frame<&DeskScreen::frmChart>("frmChart", kAnywhere, "Head and Flow along the Line", {.visible = false}),
    rows::Label<&DeskScreen::lblChartPoint>("lblChartPoint", "frmChart", kAnywhere),
    rows::Button<&DeskScreen::btnCloseChart>("btnCloseChart", "frmChart", kAnywhere, "Close",
                                             "Close the chart of head and flow"),
};

constexpr std::array<ComparisonTrait, kComparisonColumns> kTraits = {{
    {"Design", 1520, Better::kNone, "The kinds of design of the Design menu"},
    {"Unif. (%)", 640, Better::kHigher, "Distribution uniformity: mean of the lowest quarter over the target mean"},
    {"Highest Head (ft)", 1200, Better::kLower, "Highest head, feet, and its station"},
    {"Lowest Head (ft)", 1200, Better::kHigher, "Lowest head, feet, and its station"},
    {"Least Flow", 660, Better::kHigher, "Least furrow flow, gallons per minute"},
    {"Greatest Flow", 760, Better::kLower, "Greatest furrow flow, gallons per minute"},
    {"Hole Sizes", 1150, Better::kLower, "Sizes of the holes, inches; the fewest are the best"},
    {"Size Changes", 760, Better::kLower, "How often the crew must change the size along the line"},
    {"Slope (per\u00a0100\u00a0ft)", 1080, Better::kNone, "Designed slope of the crown, feet in 100 feet"},
    {"Highest Fill (ft)", 720, Better::kLower, "Highest fill below the designed crown, feet"},
    {"Hours for 1\u00a0in.", 720, Better::kLower, "Hours of pumping that apply a gross inch"},
    {"Warning, Gain", 2100, Better::kNone, "What the figures warn of, and what Best Holes gains"},
}};

constexpr int kHeadingHeight = 510;  // twips, two lines
constexpr int kMostLines = 10;
constexpr int kRemarkRow = 500;
constexpr int kRemarkColumn = 1600;
constexpr int kRemarkSentence = 3300;
constexpr int kRemarkLines = 2;

constexpr std::string_view kNone = "\u2014";           // of a design that can't be made ...
constexpr int kComparedReason = kComparedHighestHead;  // ... and the column from which on its row says why

void Compose(Grid& grid) {
  grid.fixed_back = kTeal;
  grid.fixed_fore = kWhite;
  grid.scrolls_sideways = true;
}

// The words of boxes are laid out with blanks and line ends, which have no place in a cell, and some end without a
// full stop.
std::string InOneLine(const std::vector<std::string>& sentences) {
  std::string line;
  for (const std::string& sentence : sentences) {
    bool gap = !line.empty();
    if (gap && std::string_view(".?!").find(line.back()) == std::string_view::npos) line += '.';
    for (const char c : sentence) {
      const bool blank = c == ' ' || c == '\r' || c == '\n' || c == '\t';
      if (!blank && gap) line += ' ';
      if (!blank) line += c;
      gap = blank && !line.empty();
    }
  }
  return line;
}

bool Alike(const ComparedDesign& a, const ComparedDesign& b, std::size_t column) {
  return a.values.at(column) == b.values.at(column) || a.texts.at(column) == b.texts.at(column);
}

// The design with the best figure of a column; nullptr where all are alike, or the column has no better.
const ComparedDesign* BestOf(const DeskScreen& desk, std::size_t column) {
  const Better better = kTraits.at(column).better;
  const ComparedDesign* best = nullptr;
  const ComparedDesign* first = nullptr;
  bool alike = true;
  for (const ComparedDesign& design : desk.designs) {
    const std::optional<double>& value = design.values.at(column);
    if (!design.made || !value || better == Better::kNone) continue;
    if (best == nullptr) best = first = &design;
    alike = alike && Alike(design, *first, column);
    const double gain = *value - *best->values.at(column);
    if (better == Better::kHigher ? gain > 0 : gain < 0) best = &design;
  }
  return alike ? nullptr : best;
}

std::string CellText(const ComparedDesign& design, int column, const std::string& words) {
  if (column == kComparedName) return design.texts[kComparedName];
  if (design.made) return column == kComparedWarning ? words : design.texts.at(static_cast<std::size_t>(column));
  if (!design.tried) return "";
  if (column == kComparedUniformity) return std::string(kNone);
  return column == kComparedReason ? words : "";
}

// What may be longer than its cell.
std::string CellTip(const ComparedDesign& design, int column, const std::string& words) {
  if (!design.tried) return "";
  const std::string& sizes = design.texts[kComparedSizes];
  if (design.made && column == kComparedSizes) return sizes.find(',') == std::string::npos ? "" : sizes;
  return !design.made || column == kComparedWarning ? words : "";
}

void ShowDesign(Grid& grid, int row, const ComparedDesign& design) {
  const std::string words = InOneLine(design.words);
  const bool refused = design.tried && !design.made;
  grid.Join(row, refused ? std::optional<int>(kComparedReason) : std::nullopt);
  grid.SetAlign(row, kComparedReason, refused ? Align::kGeneral : Align::kCentreCentre);
  for (int c = 0; c < kComparisonColumns; ++c) {
    grid.Set(row, c, CellText(design, c, words));
    const std::string& mark = design.marks.at(static_cast<std::size_t>(c));
    grid.SetMark(row, c, design.made ? std::string_view(mark) : std::string_view());
    if (c >= kComparedReason) grid.SetTip(row, c, CellTip(design, c, words));
  }
  // The warnings may stand where the view does not reach.
  const std::string makes = InOneLine({"Enter or a click makes this design", words});
  grid.SetTip(row, kComparedName, design.made ? makes : words);
}

}  // namespace

std::span<const ControlRow<DeskScreen>> DeskScreen::Rows() {
  return kRows;
}

const ComparisonTrait& TraitOf(ComparisonColumn column) {
  return kTraits.at(static_cast<std::size_t>(column));
}

DeskScreen::DeskScreen() {
  TakeFacts(*this);
  Compose(Comparison);
  Comparison.Resize(1, kComparisonColumns);
  Comparison.heading_height = kHeadingHeight;
  Comparison.most_lines = kMostLines;
  for (int c = 0; c < kComparisonColumns; ++c) {
    const auto column = static_cast<std::size_t>(c);
    const bool text = c == kComparedName || c == kComparedWarning;
    Comparison.Set(0, c, kTraits.at(column).heading);
    Comparison.SetTip(0, c, kTraits.at(column).tip);
    Comparison.columns[column] = {kTraits.at(column).width, 0, text ? Align::kGeneral : Align::kCentreCentre};
  }
  Compose(SurveyRemarks);
  SurveyRemarks.Resize(1, 3);
  SurveyRemarks.least_lines = SurveyRemarks.most_lines = kRemarkLines;
  SurveyRemarks.columns = {{kRemarkRow, 0, Align::kCentreCentre}, {kRemarkColumn}, {kRemarkSentence}};
  SurveyRemarks.Set(0, 0, "Row");
  SurveyRemarks.Set(0, 1, "Column");
  SurveyRemarks.Set(0, 2, "What to look at");
}

void SortComparison(DeskScreen& desk) {
  if (desk.sorted_by < 0) return;
  Grid& grid = desk.Comparison;
  const auto current = static_cast<std::size_t>(grid.row - 1);
  const std::string key = current < desk.designs.size() ? desk.designs[current].key : "";
  const auto column = static_cast<std::size_t>(desk.sorted_by);
  // A design without a figure stands below those with one, whichever way they are sorted.
  const auto before = [&](const ComparedDesign& a, const ComparedDesign& b) {
    if (a.made != b.made) return a.made;
    const bool backwards = desk.descending;
    if (desk.sorted_by == kComparedName || desk.sorted_by == kComparedWarning) {
      const std::string& ours = desk.sorted_by == kComparedName ? a.texts.at(column) : InOneLine(a.words);
      const std::string& theirs = desk.sorted_by == kComparedName ? b.texts.at(column) : InOneLine(b.words);
      return backwards ? theirs < ours : ours < theirs;
    }
    const std::optional<double>& ours = a.values.at(column);
    const std::optional<double>& theirs = b.values.at(column);
    if (!ours || !theirs) return ours.has_value() && !theirs.has_value();
    return backwards ? *theirs < *ours : *ours < *theirs;
  };
  std::stable_sort(desk.designs.begin(), desk.designs.end(), before);
  const auto now =
      std::find_if(desk.designs.begin(), desk.designs.end(), [&](const ComparedDesign& d) { return d.key == key; });
  const int row = static_cast<int>(now - desk.designs.begin()) + 1;
  if (now != desk.designs.end() && row < grid.rows() && row != grid.row) grid.SetCurrent(row, grid.column);
}

void ShowComparison(DeskScreen& desk) {
  Grid& grid = desk.Comparison;
  grid.Resize(static_cast<int>(desk.designs.size()) + 1, kComparisonColumns);
  for (int c = 0; c < kComparisonColumns; ++c) {
    const auto column = static_cast<std::size_t>(c);
    const std::string_view arrow = desk.sorted_by != c ? "" : desk.descending ? " \u25bc" : " \u25b2";
    grid.Set(0, c, std::string(kTraits.at(column).heading).append(arrow));
  }
  for (int row = 1; row < grid.rows(); ++row) ShowDesign(grid, row, desk.designs[static_cast<std::size_t>(row - 1)]);
  for (int c = 0; c < kComparisonColumns; ++c) {
    const auto column = static_cast<std::size_t>(c);
    const ComparedDesign* best = BestOf(desk, column);
    for (int row = 1; row < grid.rows(); ++row) {
      const ComparedDesign& design = desk.designs[static_cast<std::size_t>(row - 1)];
      const bool is_best = best != nullptr && design.made && design.values.at(column) && Alike(design, *best, column);
      grid.SetBack(row, c, is_best ? std::optional(kBestBack) : std::nullopt);
    }
  }
  const auto current = static_cast<std::size_t>(grid.row - 1);
  desk.lblComparisonWords.caption.clear();
  if (current >= desk.designs.size()) return;
  const ComparedDesign& design = desk.designs[current];
  const std::string words = InOneLine(design.words);
  if (!words.empty()) desk.lblComparisonWords.caption = design.texts[kComparedName] + ": " + words;
}

}  // namespace torvale

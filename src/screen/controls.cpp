#include "screen/controls.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/run_time_fault.h"
#include "base/utf8.h"

namespace torvale {

void TextField::Set(std::string_view text) {
  if (text_ == text) return;
  text_.assign(text);
  Select(selection_.start, 0);
  if (on_change) on_change();
}

std::string_view TextField::SelectedText() const {
  const std::size_t first = CharacterOffset(text_, selection_.start);
  const std::size_t end = CharacterOffset(text_, selection_.start + selection_.length);
  return std::string_view(text_).substr(first, end - first);
}

void TextField::Select(int start, int length) {
  const int count = CharacterCount(text_);
  selection_.start = std::clamp(start, 0, count);
  selection_.length = std::clamp(length, 0, count - selection_.start);
}

void TextField::SelectAll() {
  Select(0, CharacterCount(text_));
}

void TextField::ReplaceSelected(std::string_view text) {
  const int kept = CharacterCount(text_) - selection_.length;
  const int limit = max_length > 0 ? max_length : kLongestText;
  text = text.substr(0, CharacterOffset(text, std::max(0, limit - kept)));
  const std::string_view selected = SelectedText();
  std::string changed = text_;
  changed.replace(static_cast<std::size_t>(selected.data() - text_.data()), selected.size(), text);
  const int caret = selection_.start + CharacterCount(text);
  Set(changed);
  Select(caret, 0);
}

const std::string& ListBox::Line(int index) const {
  static const std::string kEmpty;
  return Holds(index) ? lines_[static_cast<std::size_t>(index)].text : kEmpty;
}

bool ListBox::Selected(int index) const {
  return Holds(index) && lines_[static_cast<std::size_t>(index)].selected;
}

int ListBox::Current() const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [](const Entry& e) { return e.selected; });
  return found == lines_.end() ? -1 : static_cast<int>(found - lines_.begin());
}

void ListBox::Deselect() {
  for (Entry& entry : lines_) entry.selected = false;
  ++revision_;
}

void ListBox::Add(std::string_view line) {
  const auto place = sorted ? std::upper_bound(lines_.begin(), lines_.end(), line,
                                               [](std::string_view text, const Entry& e) { return text < e.text; })
                            : lines_.end();
  lines_.insert(place, Entry{std::string(line)});
  ++revision_;
}

void ListBox::Remove(int index) {
  if (!Holds(index)) return;
  lines_.erase(lines_.begin() + index);
  ++revision_;
}

void ListBox::Clear() {
  lines_.clear();
  ++revision_;
}

void ListBox::Select(int index, bool selected) {
  if (!Holds(index)) return;
  if (!multiple && selected) {
    for (Entry& entry : lines_) entry.selected = false;
  }
  lines_[static_cast<std::size_t>(index)].selected = selected;
  ++revision_;
}

void Grid::Resize(int rows, int column_count) {
  if (rows == cells_.rows() && column_count == cells_.columns()) return;
  const int old_rows = cells_.rows();
  const int old_columns = cells_.columns();
  const std::vector<CellLook> old = std::move(looks_);
  cells_.Resize(rows, column_count);
  columns.resize(static_cast<std::size_t>(column_count));
  std::erase_if(joined_, [&](const auto& row) { return row.first >= rows || row.second >= column_count; });
  looks_.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(column_count), CellLook{});
  for (int r = 0; r < std::min(rows, old_rows); ++r) {
    for (int c = 0; c < std::min(column_count, old_columns); ++c) {
      LookForChange(r, c) =
          old[static_cast<std::size_t>(r) * static_cast<std::size_t>(old_columns) + static_cast<std::size_t>(c)];
    }
  }
}

void Grid::Clear() {
  cells_.Clear();
  filled_ = TextGrid();
  std::fill(looks_.begin(), looks_.end(), CellLook{});
  joined_.clear();
  ClearTips();
  ClearMarks();
}

void Grid::SetCurrent(int r, int c) {
  if (r < 0 || r >= rows() || c < 0 || c >= column_count()) throw RunTimeFault{Fault::kSubscript};
  row = row_sel = r;
  column = column_sel = c;
  edit.reset();
}

void Grid::SetSelection(int r, int c) {
  if (r < 0 || r >= rows() || c < 0 || c >= column_count()) throw RunTimeFault{Fault::kSubscript};
  row_sel = r;
  column_sel = c;
  edit.reset();
}

int Grid::RowsInView() const {
  return rows_in_view > 0 ? rows_in_view : std::max(1, (control.place.height - heading_height) / kGridRowHeight);
}

int Grid::WidthOf(int c) const {
  const GridColumn& shape = columns.at(static_cast<std::size_t>(c));
  return shape.widened > 0 ? shape.widened : shape.width;
}

int Grid::EdgeOf(int c) const {
  int edge = 0;
  for (int before = 0; before < c; ++before) edge += WidthOf(before);
  return edge;
}

void Grid::BringIntoView(int r, int c) {
  constexpr int kScrollBar = 300;  // twips
  const int room = control.place.width - kScrollBar;
  if (r >= 1) top_row = std::clamp(top_row, std::max(1, r - RowsInView() + 1), r);
  const bool scrolls = EdgeOf(column_count()) > control.place.width;
  left_column = scrolls ? std::min(left_column, c) : 0;
  while (scrolls && left_column < c && EdgeOf(c + 1) - EdgeOf(left_column) > room) ++left_column;
}

const Grid::CellLook& Grid::Look(int r, int c) const {
  if (r < 0 || r >= rows() || c < 0 || c >= column_count()) throw RunTimeFault{Fault::kSubscript};
  return looks_[static_cast<std::size_t>(r) * static_cast<std::size_t>(column_count()) + static_cast<std::size_t>(c)];
}

Grid::CellLook& Grid::LookForChange(int r, int c) {
  return const_cast<CellLook&>(Look(r, c));
}

Align Grid::AlignOf(int r, int c) const {
  return Look(r, c).align.value_or(columns[static_cast<std::size_t>(c)].align);
}

Side Grid::SideOf(int r, int c) const {
  if (AlignOf(r, c) != Align::kGeneral) return Side::kCentre;
  return IsNumber(Text(r, c)) ? Side::kRight : Side::kLeft;
}

void Grid::SetBack(int r, int c, std::optional<Colour> colour) {
  CellLook& look = LookForChange(r, c);
  if (look.back == colour) return;
  look.back = colour;
  ++look_revision_;
}

void Grid::SetFore(int r, int c, std::optional<Colour> colour) {
  CellLook& look = LookForChange(r, c);
  if (look.fore == colour) return;
  look.fore = colour;
  ++look_revision_;
}

void Grid::SetAlign(int r, int c, Align align) {
  CellLook& look = LookForChange(r, c);
  if (look.align == align) return;
  look.align = align;
  ++look_revision_;
}

const Grid::CellNote& Grid::Note(int r, int c) const {
  static const CellNote kNone;
  const auto found = notes_.find({r, c});
  return found == notes_.end() ? kNone : found->second;
}

void Grid::SetNote(int r, int c, std::string CellNote::*part, std::string_view text) {
  if (Look(r, c), Note(r, c).*part == text) return;
  notes_[{r, c}].*part = text;
  ++look_revision_;
}

void Grid::SetTip(int r, int c, std::string_view tip) {
  SetNote(r, c, &CellNote::tip, tip);
}

void Grid::SetMark(int r, int c, std::string_view mark) {
  SetNote(r, c, &CellNote::mark, mark);
}

void Grid::ClearNotes(std::string CellNote::*part) {
  for (auto& [cell, note] : notes_) {
    if ((note.*part).empty()) continue;
    (note.*part).clear();
    ++look_revision_;
  }
  std::erase_if(notes_, [](const auto& entry) { return entry.second.tip.empty() && entry.second.mark.empty(); });
}

void Grid::ClearTips() {
  ClearNotes(&CellNote::tip);
}

void Grid::ClearMarks() {
  ClearNotes(&CellNote::mark);
}

int Grid::StartOf(int r, int c) const {
  const auto found = joined_.find(r);
  return found == joined_.end() ? c : std::min(c, found->second);
}

void Grid::Join(int r, std::optional<int> from) {
  const auto found = joined_.find(r);
  if (found == joined_.end() ? !from.has_value() : from == found->second) return;
  joined_.erase(r);
  if (Look(r, from.value_or(0)), from) joined_[r] = *from;
  ++look_revision_;
}

bool Grid::Filled(int r, int c) const {
  if (r >= filled_.rows() || c >= filled_.columns()) return false;
  const std::string& text = filled_.Text(r, c);
  return !text.empty() && text == cells_.Text(r, c);
}

void Grid::SetFilled(int r, int c, bool filled) {
  if (!filled && (r >= filled_.rows() || c >= filled_.columns())) return;
  if (filled) filled_.Resize(rows(), column_count());
  filled_.Set(r, c, filled ? std::string_view(cells_.Text(r, c)) : std::string_view());
  ++look_revision_;
}

}  // namespace torvale

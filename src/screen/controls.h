// The screen as plain data. The logic reads and writes these structures; a window is a rendering of them and keeps no
// state that they lack. Positions and sizes are in twips, 1,440 to the inch.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "record/text_grid.h"

namespace torvale {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

inline constexpr Colour kBlack{0, 0, 0};
inline constexpr Colour kWhite{255, 255, 255};
inline constexpr Colour kLightGrey{224, 224, 224};
inline constexpr Colour kTeal{0, 128, 128};
inline constexpr Colour kStrongGreen{0, 192, 0};
inline constexpr Colour kBrightGreen{0, 255, 0};
inline constexpr Colour kYellow{255, 255, 0};
inline constexpr Colour kPaleYellow{255, 255, 128};
inline constexpr Colour kRed{255, 0, 0};
inline constexpr Colour kMarkedBack{255, 199, 206};  // behind a text that carries a mark

struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const Place&) const = default;
};

// What labels, buttons, frames, fields, grids and menu entries have in common. In a caption "&" marks the mnemonic of
// a button or menu entry; in a label it stands for itself.
struct Control {
  std::string caption;
  std::string tool_tip;
  Place place;
  bool visible = true;
  bool enabled = true;
  bool ticked = false;         // menu entries
  std::optional<Colour> back;  // unset: the window's own background
  std::optional<Colour> fore;  // unset: the window's own text colour
  // Why what stands here won't be taken as it looks, as a sentence; empty where nothing is wrong. A window shows a
  // marked field in red, and the sentence ahead of the tool tip.
  std::string mark;
  bool operator==(const Control&) const = default;
};

// The characters of a field that are selected; of none, `start` is where the caret stands.
struct TextSelection {
  int start = 0;
  int length = 0;
  bool operator==(const TextSelection&) const = default;
};

inline constexpr int kLongestText = 32767;  // characters of a field without a limit of its own

// A line of text that the user types into.
class TextField {
 public:
  const std::string& text() const { return text_; }
  // Replaces the text and runs the change handling, as typing does. Nothing of a new text is selected; the caret stays
  // where it was, at most at the end. The text that stands already changes nothing.
  void Set(std::string_view text);

  TextSelection selection() const { return selection_; }
  std::string_view SelectedText() const;
  // Selects `length` characters from `start` on, as far as the text goes.
  void Select(int start, int length);
  void SelectAll();
  // Puts `text`, cut to the characters that the field still takes, in the place of the selected text, with the change
  // handling. The caret stands behind it.
  void ReplaceSelected(std::string_view text);

  Control control;
  int max_length = 0;               // characters that may be typed; 0 for no limit of its own
  std::function<void()> on_change;  // registered at start by the part that owns the field

 private:
  std::string text_;
  TextSelection selection_;
};

// A list of text lines of which some are selected.
class ListBox {
 public:
  Control control;
  bool multiple = false;   // several lines may be selected at once
  bool drop_down = false;  // shows the selected line alone until it is opened
  bool sorted = false;     // lines are kept in ascending order of their character codes

  int count() const { return static_cast<int>(lines_.size()); }
  std::uint64_t revision() const { return revision_; }
  // The text of a line, from 0; a line that is not there reads as empty.
  const std::string& Line(int index) const;
  bool Selected(int index) const;
  // The first selected line, or -1.
  int Current() const;

  void Add(std::string_view line);
  // A line that is not there is passed over, here and below.
  void Remove(int index);
  void Clear();
  // In a list of one selected line, selecting it takes the mark from the others.
  void Select(int index, bool selected);
  void Deselect();

 private:
  struct Entry {
    std::string text;
    bool selected = false;
  };
  bool Holds(int index) const { return index >= 0 && index < count(); }

  std::vector<Entry> lines_;
  std::uint64_t revision_ = 0;
};

enum class Align { kGeneral, kCentreCentre, kCentreBottom };
// Where a text stands in its cell.
enum class Side { kLeft, kCentre, kRight };

struct GridColumn {
  int width = 0;    // twips, as the layout has it
  int widened = 0;  // twips that the user gave it in the place of that; 0 for none
  Align align = Align::kGeneral;
  bool operator==(const GridColumn&) const = default;
};

inline constexpr int kGridRowHeight = 240;  // twips of a row below the headings

// A grid: text cells with a current cell, the far corner of a selection, and the looks of its cells. Row 0 is the
// heading row and stays in place when the grid scrolls. Cells outside the grid are a RunTimeFault (kSubscript).
class Grid {
 public:
  Control control;
  std::vector<GridColumn> columns;
  int heading_height = 0;            // twips
  int least_lines = 1;               // of letters that a row has room for; a longer text takes several of them ...
  int most_lines = 1;                // ... and as many where all rows have room for that
  std::optional<Colour> fixed_back;  // the heading row
  std::optional<Colour> fixed_fore;
  int top_row = 1;                // first row below the headings that is in view; a window moves it as the user scrolls
  int left_column = 0;            // first column in view, the same way
  bool scrolls_sideways = false;  // where it has less room than its columns take, as after the user widened one
  int rows_in_view = 0;           // as a window shows them; 0: as many as the grid's place has room for
  int row = 1;                    // the current cell ...
  int column = 0;
  int row_sel = 1;  // ... and the far corner of the selection
  int column_sel = 0;
  // A caret in the current cell: the character that it stands ahead of, and the text as it was when the caret came.
  // Nothing where what is typed goes to the end. Every move of the current cell takes it away.
  struct CellEdit {
    int caret = 0;
    std::string before;
  };
  std::optional<CellEdit> edit;

  TextGrid& cells() { return cells_; }
  const TextGrid& cells() const { return cells_; }
  int rows() const { return cells_.rows(); }
  int column_count() const { return cells_.columns(); }
  // Moves with every change of a cell's text or look.
  std::uint64_t revision() const { return cells_.revision() + look_revision_; }

  void Resize(int rows, int column_count);
  // Empties every cell, headings included, and takes looks, tips and marks of single cells away.
  void Clear();

  const std::string& Text(int r, int c) const { return cells_.Text(r, c); }
  void Set(int r, int c, std::string_view text) { cells_.Set(r, c, text); }
  // The text of the current cell.
  const std::string& CurrentText() const { return cells_.Text(row, column); }

  // Moves the current cell, and the selection with it. A row or column outside the grid is a RunTimeFault.
  void SetCurrent(int r, int c);
  // Moves the far corner of the selection.
  void SetSelection(int r, int c);

  // Rows below the headings that are in view.
  int RowsInView() const;
  // Twips that a column takes, and from the left edge of the first column to its own.
  int WidthOf(int c) const;
  int EdgeOf(int c) const;
  // Scrolls as far as it takes to show the cell. The view stays where the user left it until someone asks for this: a
  // cursor that moves by itself takes no one along.
  void BringIntoView(int r, int c);

  std::optional<Colour> Back(int r, int c) const { return Look(r, c).back; }
  std::optional<Colour> Fore(int r, int c) const { return Look(r, c).fore; }
  // How the cell is aligned: its own way, or its column's.
  Align AlignOf(int r, int c) const;
  // What comes of that for the cell's text: general alignment puts numbers to the right and all else to the left.
  Side SideOf(int r, int c) const;
  void SetBack(int r, int c, std::optional<Colour> colour);
  void SetFore(int r, int c, std::optional<Colour> colour);
  void SetAlign(int r, int c, Align align);

  // What is said of a single cell: a tool tip, and a mark as a control has one. They stay with the cell, whatever its
  // text becomes; whoever set them takes them away. Empty for none.
  const std::string& Tip(int r, int c) const { return Note(r, c).tip; }
  const std::string& Mark(int r, int c) const { return Note(r, c).mark; }
  void SetTip(int r, int c, std::string_view tip);
  void SetMark(int r, int c, std::string_view mark);
  // Takes the tips of all cells away, or the marks.
  void ClearTips();
  void ClearMarks();

  // Rows whose cells are one from a column on, by row: the text is that column's, the others stay empty.
  const std::map<int, int>& joined() const { return joined_; }
  // The column at which the cell begins that a column of a row is part of.
  int StartOf(int r, int c) const;
  // Joins the cells of a row from that column on; by nothing parts them.
  void Join(int r, std::optional<int> from);

  // Whether the text of a cell is one that the program filled in, and nobody has put another in its place.
  bool Filled(int r, int c) const;
  // Remembers that the text that stands in the cell was filled in, or forgets it.
  void SetFilled(int r, int c, bool filled);

 private:
  struct CellLook {
    std::optional<Colour> back;
    std::optional<Colour> fore;
    std::optional<Align> align;
    bool operator==(const CellLook&) const = default;
  };
  struct CellNote {
    std::string tip;
    std::string mark;
  };
  const CellLook& Look(int r, int c) const;
  CellLook& LookForChange(int r, int c);
  const CellNote& Note(int r, int c) const;
  void SetNote(int r, int c, std::string CellNote::*part, std::string_view text);
  void ClearNotes(std::string CellNote::*part);

  TextGrid cells_;
  TextGrid filled_;  // what was filled in, cell by cell; without a cell while nothing was
  std::vector<CellLook> looks_;
  std::map<std::pair<int, int>, CellNote> notes_;  // few cells have one
  std::map<int, int> joined_;
  std::uint64_t look_revision_ = 0;
};

}  // namespace torvale

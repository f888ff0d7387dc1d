#include "script/show.h"

#include <cstdint>
#include <optional>
#include <string>

#include "base/numbers.h"
#include "record/record_fields.h"
#include "script/named.h"
#include "script/quoting.h"
#include "script/words.h"
#include "shell/events.h"

namespace torvale {
namespace {

constexpr std::string_view kMainForm = "frmMainForm";
constexpr std::string_view kChart = "chart";
constexpr std::string_view kPoints = "Points";
constexpr std::string_view kFilledCells = "FilledCells";

std::string ColourText(const Colour& colour) {
  return std::to_string(colour.red) + "," + std::to_string(colour.green) + "," + std::to_string(colour.blue);
}

void ShowColours(std::ostream& out, const std::optional<Colour>& back, const std::optional<Colour>& fore) {
  if (back) out << " back " << ColourText(*back);
  if (fore && *fore != kBlack) out << " fore " << ColourText(*fore);
}

void ShowMark(std::ostream& out, std::string_view mark) {
  if (!mark.empty()) out << " mark " << Quoted(mark);
}

void ShowCell(std::ostream& out, std::string_view name, const Grid& grid, int row, int column) {
  out << name << '[' << row << ',' << column << "] = " << Quoted(grid.Text(row, column));
  ShowColours(out, grid.Back(row, column), grid.Fore(row, column));
  if (!grid.Tip(row, column).empty()) out << " tip " << Quoted(grid.Tip(row, column));
  ShowMark(out, grid.Mark(row, column));
  out << '\n';
}

// Calls `work` with row and column of every cell that isn't empty.
template <typename Work>
void ForEachFilledCell(const TextGrid& cells, Work work) {
  for (int row = 0; row < cells.rows(); ++row) {
    for (int column = 0; column < cells.columns(); ++column) {
      if (!cells.Text(row, column).empty()) work(row, column);
    }
  }
}

void ShowGrid(std::ostream& out, std::string_view name, const Grid& grid) {
  ForEachFilledCell(grid.cells(), [&](int row, int column) { ShowCell(out, name, grid, row, column); });
}

void ShowControl(std::ostream& out, std::string_view name, const Control& control) {
  out << name << " = " << Quoted(control.caption) << (control.visible ? " visible" : " hidden")
      << (control.enabled ? " enabled" : " disabled") << (control.ticked ? " ticked" : "");
  ShowColours(out, control.back, control.fore);
  out << '\n';
}

void ShowList(std::ostream& out, std::string_view name, const ListBox& list) {
  ShowControl(out, name, list.control);
  for (int i = 0; i < list.count(); ++i) {
    out << name << '[' << i << "] = " << Quoted(list.Line(i)) << (list.Selected(i) ? " selected" : "") << '\n';
  }
}

void ShowMainForm(std::ostream& out, const MainScreen& screen) {
  out << kMainForm << " = " << Quoted(screen.title) << " pointer "
      << (screen.busy || screen.main_busy ? "busy" : "normal");
  if (!screen.focus.empty()) out << " focus " << screen.focus;
  if (screen.closed) out << " closed";
  out << '\n';
}

void ShowPoints(std::ostream& out, std::string_view name, const LineChart& chart) {
  for (int row = 0; row < chart.rows; ++row) {
    for (int column = 0; column <= chart.series; ++column) {
      const std::string& text = chart.Points.Text(row, column);
      if (!text.empty()) out << name << '[' << row << ',' << column << "] = " << Quoted(text) << '\n';
    }
  }
}

void ShowFilledCells(std::ostream& out, const Grid& grid) {
  ForEachFilledCell(grid.cells(), [&](int row, int column) {
    if (!grid.Filled(row, column)) return;
    out << kFilledCells << '[' << row << ',' << column << "] = " << Quoted(grid.Text(row, column)) << '\n';
  });
}

void ShowChart(std::ostream& out, const LineChart& chart) {
  out << kChart << " = " << Quoted(chart.title) << " axis " << Quoted(chart.value_title) << " from "
      << ShortestText(chart.minimum) << " to " << ShortestText(chart.maximum) << " divisions " << chart.major_divisions
      << " of " << chart.minor_divisions << " rows " << chart.rows << " series " << chart.series << '\n';
}

std::string ValueText(bool value) {
  return value ? "True" : "False";
}
std::string ValueText(unsigned char value) {
  return std::to_string(value);
}
std::string ValueText(std::int16_t value) {
  return std::to_string(value);
}
std::string ValueText(float value) {
  return ShortestText(value);
}
std::string ValueText(double value) {
  return ShortestText(value);
}
std::string ValueText(const std::string& value) {
  return Quoted(value);
}
std::string ValueText(const FreeValue& value) {
  return value ? ShortestText(*value) : "unset";
}

// Shows a field of the record, whatever its type.
struct FieldPrinter {
  std::ostream& out;
  const DesignRecord& record;
  Elements elements;

  template <typename T>
  void operator()(const RecordField<T>& field) const {
    out << field.name << " = " << ValueText(record.*field.member) << '\n';
  }

  void operator()(const RecordField<TextGrid>& field) const {
    const TextGrid& cells = record.*field.member;
    ForEachFilledCell(cells, [&](int row, int column) {
      out << field.name << '[' << row << ',' << column << "] = " << Quoted(cells.Text(row, column)) << '\n';
    });
  }

  template <typename T, int Last>
  void operator()(const RecordField<BoundedArray<T, Last>>& field) const {
    const BoundedArray<T, Last>& list = record.*field.member;
    const bool rows = Last == kLastRow && elements == Elements::kInUse;
    for (int i = rows ? 1 : 0; i <= (rows ? record.HoleRows : Last); ++i) {
      if (rows || list[i] != T{}) out << field.name << '[' << i << "] = " << ValueText(list[i]) << '\n';
    }
  }
};

// Shows one element of a list. A field that is no list, and an index outside it, can't be shown.
struct ElementPrinter {
  std::ostream& out;
  const DesignRecord& record;
  int index;

  template <typename T>
  void operator()(const RecordField<T>& field) const {
    throw ScriptError(script_words::kHasNoElements(field.name));
  }

  template <typename T, int Last>
  void operator()(const RecordField<BoundedArray<T, Last>>& field) const {
    if (index < 0 || index > Last) throw ScriptError(script_words::kNoElement(std::to_string(index)));
    out << field.name << '[' << index << "] = " << ValueText((record.*field.member)[index]) << '\n';
  }
};

// A name such as `Head[12]`. False where it isn't one.
bool ShowNamedElement(std::ostream& out, const DesignRecord& record, std::string_view name) {
  const std::size_t open = name.find('[');
  if (open == std::string_view::npos || name.back() != ']' || name.find(',') != std::string_view::npos) return false;
  const int index = WholeNumber(name.substr(open + 1, name.size() - open - 2));
  return WithRecordField(name.substr(0, open), ElementPrinter{out, record, index});
}

// A name such as `Grid2[1,5]`. False where it isn't one.
bool ShowNamedCell(std::ostream& out, Program& program, std::string_view name) {
  const std::size_t open = name.find('[');
  if (open == std::string_view::npos) return false;
  const Grid* grid = FindGrid(program, name.substr(0, open));
  const std::size_t comma = name.find(',', open);
  if (grid == nullptr || comma == std::string_view::npos || name.back() != ']') return false;
  const int row = WholeNumber(name.substr(open + 1, comma - open - 1));
  const int column = WholeNumber(name.substr(comma + 1, name.size() - comma - 2));
  if (row < 0 || row >= grid->rows() || column < 0 || column >= grid->column_count()) return false;
  ShowCell(out, name.substr(0, open), *grid, row, column);
  return true;
}

}  // namespace

void Show(std::ostream& out, Program& program, std::string_view name, Elements elements) {
  if (name == kMainForm) {
    ShowMainForm(out, program.main);
  } else if (const Grid* grid = FindGrid(program, name)) {
    ShowGrid(out, name, *grid);
  } else if (const TextField* field = FindField(program, name)) {
    out << name << " = " << Quoted(field->text());
    ShowMark(out, field->control.mark);
    out << '\n';
  } else if (const ListBox* list = FindList(program, name)) {
    ShowList(out, name, *list);
  } else if (const Control* control = FindControl(program, name)) {
    ShowControl(out, name, *control);
  } else if (name == kChart) {
    ShowChart(out, program.profile.chart);
  } else if (name == kPoints) {
    ShowPoints(out, name, program.profile.chart);
  } else if (name == kFilledCells) {
    ShowFilledCells(out, program.main.Grid1);
  } else if (name == "record") {
    ForEachRecordField(FieldPrinter{out, program.record, elements});
  } else if (!WithRecordField(name, FieldPrinter{out, program.record, elements}) &&
             !ShowNamedElement(out, program.record, name) && !ShowNamedCell(out, program, name)) {
    throw ScriptError(script_words::kNothingToShow(name));
  }
}

void ShowView(std::ostream& out, Program& program, std::string_view name) {
  const Grid& grid = NamedGrid(program, name);
  out << name << " view " << grid.top_row << ' ' << grid.left_column << " edges";
  for (int c = 0; c <= grid.column_count(); ++c) out << ' ' << grid.EdgeOf(c);
  out << '\n';
}

void ShowCurrentCell(std::ostream& out, Program& program, std::string_view name) {
  const Grid& grid = NamedGrid(program, name);
  out << name << " at " << grid.row << ' ' << grid.column;
  if (grid.row_sel != grid.row || grid.column_sel != grid.column) {
    out << ' ' << grid.row_sel << ' ' << grid.column_sel;
  }
  out << '\n';
}

}  // namespace torvale

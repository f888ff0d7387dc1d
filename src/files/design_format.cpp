#include "files/design_format.h"

#include <optional>
#include <utility>
#include <vector>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/cell_texts.h"
#include "engine/survey.h"
#include "files/code_page.h"
#include "files/fields.h"
#include "files/file_fault.h"
#include "files/soils.h"
#include "screen/field_facts.h"

namespace torvale {
namespace {

constexpr int kSavedSurveyColumns = 8;  // the planted width goes with the rows instead
constexpr int kSavedResultColumns = 11;
constexpr int kReservedRecords = 4;
constexpr int kReservedFields = 5;
constexpr int kThrownAwayDefaults = 5;

constexpr double kSizesVersion = 2;     // first version with hole sizes chosen by the user
constexpr double kReservedVersion = 7;  // first version whose reserved records are read
constexpr double kWidthVersion = 8;     // first version with planted widths

// The format is written down once, as a walk over the fields in their order; the two walkers below write what they
// meet, or replace it by what they read.
class Saver {
 public:
  static constexpr bool kReads = false;
  void Text(const std::string& text) { out_.Text(text); }
  void Integer(std::int16_t value) { out_.Integer(value); }
  void Number(float value) { out_.Number32(value); }
  void Number(double value) { out_.Number64(value); }
  void Free(const FreeValue& value) { out_.Free(value); }
  void Typed(const TextField& field) { out_.Text(field.text()); }
  void Passed(const TextField& field) { out_.Text(field.text()); }
  void Cell(const Grid& grid, int row, int column) { out_.Text(grid.Text(row, column)); }
  void EndRecord() { out_.EndRecord(); }
  const std::string& text() const { return out_.text(); }

 private:
  FieldWriter out_;
};

class Loader {
 public:
  static constexpr bool kReads = true;
  explicit Loader(std::string text) : in_(std::move(text)) {}
  void Text(std::string& text) { text = in_.Text(); }
  void Integer(std::int16_t& value) { value = in_.Integer(); }
  void Number(float& value) { value = in_.Number32(); }
  void Number(double& value) { value = in_.Number64(); }
  void Free(FreeValue& value) { value = in_.Free(); }
  // A text that its field takes and can't convert, as a flow of 1E39, stands there as it does when typed.
  void Typed(TextField& field) {
    const std::string text = in_.Text();
    try {
      field.Set(text);
    } catch (const RunTimeFault&) {
      return;
    }
  }
  void Passed(TextField& /*field*/) { in_.Text(); }
  void Cell(Grid& grid, int row, int column) { grid.Set(row, column, in_.Text()); }
  void EndRecord() {}

  // As many quoted texts, where exactly these are left.
  std::optional<std::vector<std::string>> LastTexts(int count) const {
    FieldReader rest = in_;
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) {
      if (!rest.AtQuotedText()) return std::nullopt;
      texts.push_back(rest.Text());
    }
    if (!rest.AtEnd()) return std::nullopt;
    return texts;
  }

 private:
  FieldReader in_;
};

template <typename Walker, typename... Numbers>
void NumberRecord(Walker& walk, Numbers&... numbers) {
  (walk.Number(numbers), ...);
  walk.EndRecord();
}

template <typename Walker, typename... Integers>
void IntegerRecord(Walker& walk, Integers&... integers) {
  (walk.Integer(integers), ...);
  walk.EndRecord();
}

template <typename Walker>
void Input(Walker& walk, Program& program) {
  DesignRecord& record = program.record;
  walk.Text(record.FileVersion);
  walk.EndRecord();
  IntegerRecord(walk, record.SurveyRows);
  for (TextField& field : program.main.txtInfo) {
    walk.Typed(field);
    walk.EndRecord();
  }
  for (int i = 1; i <= record.SurveyRows; ++i) {
    for (int j = 0; j < kSavedSurveyColumns; ++j) {
      walk.Cell(program.main.Grid1, i, j);
      walk.EndRecord();
    }
  }
  IntegerRecord(walk, record.DesignType);
  // A design does not bring back the preferences it was saved with.
  for (int i = 0; i < kThrownAwayDefaults; ++i) {
    walk.Passed(program.main.txtDefault.at(static_cast<std::size_t>(i)));
    walk.EndRecord();
  }
}

template <typename Walker>
void Summary(Walker& walk, DesignRecord& record, std::int16_t& soil) {
  walk.Free(record.HoleSizeIndexLimit);
  walk.EndRecord();
  IntegerRecord(walk, record.HoleRows, record.WateredFurrows);
  NumberRecord(walk, record.MaxFurrowFlow, record.MinFurrowFlow);
  NumberRecord(walk, record.Uniformity, record.CrownSlope);
  NumberRecord(walk, record.MaxHead, record.MinHead);
  IntegerRecord(walk, record.MaxHeadStation, record.MinHeadStation);
  NumberRecord(walk, record.HazenWilliamsC, record.DischargeCoef);
  NumberRecord(walk, record.AverageFurrowFlow, record.AccumGPM);
  walk.Integer(record.WateredFurrows);
  NumberRecord(walk, record.TotalFurrowLength);
  walk.Free(record.DualBreakStation);
  walk.Text(record.DisplayFileName);
  walk.Text(record.PipeKind);
  walk.EndRecord();
  walk.Number(record.TotalAcres);
  walk.Text(record.HoleSumStations);
  walk.Text(record.HoleSumLengths);
  walk.EndRecord();
  walk.Text(record.HoleSumCounts);
  walk.Number(record.HighestFill);
  IntegerRecord(walk, soil);
}

template <typename Walker>
void Row(Walker& walk, DesignRecord& record, int i, double version) {
  NumberRecord(walk, record.DesignElev[i]);
  NumberRecord(walk, record.CrownElev[i], record.Station[i]);
  NumberRecord(walk, record.NormFurrowFlow[i]);
  NumberRecord(walk, record.ElevByFoot[i], record.Head[i]);
  NumberRecord(walk, record.ReservedRowValue[i], record.HoleSpacing[i]);
  NumberRecord(walk, record.FurrowFlow[i], record.SurveyHoleDia[i], record.HoleDia[i]);
  walk.Number(record.HoleArea[i]);
  IntegerRecord(walk, record.HolesPerFurrow[i]);
  NumberRecord(walk, record.PipeDia[i], record.RequiredFlow[i]);
  walk.Number(record.PipeArea[i]);
  IntegerRecord(walk, record.FurrowLength[i], record.NormFurrowLength[i]);
  walk.Number(record.FurrowNumber[i]);
  walk.Text(record.MilText[i]);
  walk.EndRecord();
  if (version < kSizesVersion) return;
  walk.Number(record.LimitedHoleDia[i]);
  walk.Text(record.ReservedRowValue2[i]);
  walk.EndRecord();
}

template <typename Walker>
void Rows(Walker& walk, Program& program, double version) {
  for (int i = 1; i <= program.record.HoleRows; ++i) {
    for (int j = 0; j < kSavedResultColumns; ++j) {
      walk.Cell(program.main.Grid2, i, j);
      walk.EndRecord();
    }
  }
  for (int i = 1; i <= program.record.HoleRows; ++i) Row(walk, program.record, i, version);
}

template <typename Walker>
void ReservedFields(Walker& walk, int count) {
  FreeValue unset;
  for (int i = 0; i < count; ++i) {
    if (!Walker::kReads) unset.reset();
    walk.Free(unset);
  }
}

template <typename Walker>
void Tail(Walker& walk, DesignRecord& record, std::int16_t& sizes, double version) {
  if (version >= kSizesVersion) {
    IntegerRecord(walk, sizes);
    for (int i = 0; i < sizes; ++i) {
      walk.Number(record.SelectedHoleValue[i]);
      walk.Text(record.SelectedHoleName[i]);
      walk.EndRecord();
    }
  }
  if (version >= kReservedVersion) {
    for (int i = 0; i < kReservedRecords; ++i) {
      ReservedFields(walk, kReservedFields);
      walk.EndRecord();
    }
  }
  if (version < kWidthVersion) return;
  for (int i = 1; i <= record.HoleRows; ++i) {
    walk.Number(record.PlantedWidth[i]);
    ReservedFields(walk, 2);
    walk.EndRecord();
  }
}

void Widths(Saver& walk, Program& program) {
  for (int i = 1; i <= program.record.SurveyRows; ++i) {
    walk.Cell(program.main.Grid1, i, kPlantedWidthColumn);
    walk.EndRecord();
  }
}

// The planted width that a survey row takes from the hole of the same number, as the sheet shows it; nothing where that
// hole has no flow. The pairing of two kinds of row is that of the format; rows past `HoleRows` count as empty.
std::optional<std::string> PairedWidth(const DesignRecord& record, int row) {
  if (!(AtRow(record, record.FurrowFlow, row) > 0) && record.DesignType != kSurveyOnly) return std::nullopt;
  // As it comes back from seven digits, so that writing and reading agree.
  const float width = Store32(Val(GeneralText(AtRow(record, record.PlantedWidth, row))));
  return Format(width, "##.00");
}

// The sheet's last column by itself where the file has it, else by the pairing.
void ShowWidths(Program& program, const std::optional<std::vector<std::string>>& widths) {
  Grid& sheet = program.main.Grid1;
  for (int i = 1; i <= program.record.SurveyRows; ++i) {
    std::optional<std::string> width = PairedWidth(program.record, i);
    if (widths) width = widths->at(static_cast<std::size_t>(i) - 1);
    if (!width) continue;
    sheet.Set(i, kPlantedWidthColumn, *width);
    sheet.SetAlign(i, kPlantedWidthColumn, Align::kCentreBottom);
  }
}

// Whether two cells hold one number, however it is written. An empty cell holds none.
bool SameNumber(std::string_view a, std::string_view b) {
  return a.empty() == b.empty() && Val(a) == Val(b);
}

// Whether a reader that goes by the holes alone gives the sheet its widths back, as numbers.
bool WidthsArePaired(const Program& program) {
  const DesignRecord& record = program.record;
  for (int i = 1; i <= record.SurveyRows; ++i) {
    const std::string cell = FromCodePage(ToCodePage(AsTextField(program.main.Grid1.Text(i, kPlantedWidthColumn))));
    if (!SameNumber(PairedWidth(record, i).value_or(""), cell)) return false;
  }
  return true;
}

}  // namespace

double VersionNumber(std::string_view version) {
  return Val(version);
}

std::string WriteDesign(Program& program) {
  Saver walk;
  const double version = VersionNumber(program.record.FileVersion);
  auto soil = static_cast<std::int16_t>(ChosenSoil(program));
  auto sizes = static_cast<std::int16_t>(program.main.listHolesSelected.count());
  Input(walk, program);
  Summary(walk, program.record, soil);
  Rows(walk, program, version);
  Tail(walk, program.record, sizes, version);
  if (!WidthsArePaired(program)) Widths(walk, program);
  return walk.text();
}

DesignHead ReadDesignHead(std::string text) {
  DesignHead head;
  FieldReader in(std::move(text));
  const auto pass_texts = [&in](int count) {
    for (int i = 0; i < count; ++i) in.Text();
  };
  ErrorOf([&] {
    in.Text();  // the version
    const int rows = in.Integer();
    head.name = in.Text();
    pass_texts(static_cast<int>(kInfoFacts.size()) - 1 + rows * kSavedSurveyColumns);
    head.type = in.Integer();
    if (head.type == kSurveyOnly) return;
    pass_texts(kThrownAwayDefaults);
    in.Free();     // HoleSizeIndexLimit
    in.Integer();  // HoleRows
    in.Integer();  // WateredFurrows
    in.Number32();
    in.Number32();
    head.uniformity = in.Number32();
  });
  return head;
}

DesignExtras ReadDesign(Program& program, std::string text,
                        const std::function<void(const DesignExtras&)>& soil_chosen) {
  Loader walk(std::move(text));
  std::int16_t soil = -1;
  std::int16_t sizes = 0;
  Input(walk, program);
  DesignExtras extras;
  extras.version = VersionNumber(program.record.FileVersion);
  Summary(walk, program.record, soil);
  extras.soil = soil;
  soil_chosen(extras);
  Rows(walk, program, extras.version);
  Tail(walk, program.record, sizes, extras.version);
  extras.sizes = sizes;
  ShowWidths(program, extras.version >= kWidthVersion ? walk.LastTexts(program.record.SurveyRows) : std::nullopt);
  return extras;
}

}  // namespace torvale

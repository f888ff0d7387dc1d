// Every design that the program shows is saved so that it opens as it was: the same sheet, the same results, and the
// same design when it is calculated again.
#include <cmath>
#include <random>
#include <sstream>

#include "base/numbers.h"
#include "engine/survey.h"
#include "file_program.h"
#include "files/design_format.h"
#include "files/fields.h"
#include "files/new_design.h"
#include "search/cal_dsign_var.h"
#include "search/hole_selection_panel.h"
#include "support/long_runs.h"

namespace torvale {
namespace {

int Designs() {
  return LongRun(70, 500, 2'000);
}

class RandomUse {
 public:
  explicit RandomUse(unsigned seed) : random_(seed) {}

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  bool Once(int in) { return Below(in) == 0; }
  template <std::size_t kCount>
  std::string OneOf(const char* const (&texts)[kCount]) {
    return texts[Below(static_cast<int>(kCount))];
  }

  // Rows of furrows with whatever may vary along the line, reaches without water among them, and a flow that the holes
  // about take.
  void TypeSurvey(FileProgram& p) {
    const int rows = 2 + Below(4);
    const int step = 10 * (1 + Below(2));
    const bool rods = Once(2);
    p.main.txtInfo[5].Set(rods ? "R" : "E");
    int furrows = 0;
    for (int i = 1; i <= rows; ++i) {
      const bool dry = rows > 2 && Once(6);
      const int spacing = 5 * (1 + Below(2));
      const std::string cells[] = {std::to_string((i - 1) * step),
                                   std::to_string(100 + Below(2)) + "." + std::to_string(Below(10)),
                                   dry ? "" : std::to_string(900 + 50 * Below(5)),
                                   dry ? "" : std::to_string(spacing),
                                   OneOf({"15", "15.00", "12"}),
                                   dry ? "" : OneOf({"3/8", "1/2", "7/16"}),
                                   dry ? "" : std::to_string(1 + Below(2)),
                                   OneOf({"10", "9"}),
                                   OneOf({"10", "20", "40.00", "6.5", "", "12.345"})};
      for (int c = 0; c < 9; ++c) p.main.Grid1.Set(i, c, cells[c]);
      furrows += dry ? 0 : step / spacing;
    }
    p.main.txtInfo[2].Set(std::to_string(6 * std::max(furrows, 1)));
    p.main.txtInfo[3].Set(OneOf({"2", "3.0", "1.5"}));
    p.main.txtInfo[0].Set(OneOf({"East 40", "6\" riser\", \"new", "a,b", ""}));
    p.main.txtInfo[4].Set(OneOf({"Levee", "\"", "Ca\u00F1on \u201Dx\u201D"}));
    p.record.DisplayFileName = OneOf({"", "/home/u/the \"big\", one.PFD"});
  }

  void ChoosePreferences(FileProgram& p) {
    p.FillPreferences();
    p.main.txtDefault[11].Set(OneOf({"R", "C"}));
    p.main.txtDefault[12].Set(OneOf({"1.2", "0"}));
    p.main.txtDefault[4].Set(OneOf({"1.2", "1\",\"2"}));
  }

  // What a user does behind the results, or while there are none. Computer selected holes are calculated when they are
  // opened, from the sheet as it is, and are left as they were calculated.
  void Afterwards(FileProgram& p) {
    p.main.listSoils.Select(Below(6), true);
    if (p.record.DesignType == kComputerHoles) return;
    if (Once(4)) p.main.Grid1.Set(1 + Below(2), 8, "33");
    if (Once(4)) p.main.Grid1.Set(1 + Below(2), 7, "1\"0");
    if (Once(6)) {
      p.main.Grid1.Set(12, 0, "900");
      p.main.Grid1.Set(12, 8, "7");
    }
  }

 private:
  std::mt19937 random_;
};

constexpr std::string_view kSoils = "\"Sand\",\"30\"\r\n\"Loam\",\"20\"\r\n\"Clay\",\"10\"\r\n";

void ReadSoilsTwice(FileProgram& p) {
  p.host.WriteFile("SoilsName.txt", kSoils);
  OpenSoils(p.program);
  OpenSoils(p.program);
}

using Command = void (*)(Program&);

void ChooseSizes(Program& program) {
  mnuManHoleSelection_Click(program);
  for (const char* size : {"3/8", "7/16", "1/2"}) program.main.listHolesSelected.Add(size);
  cmdExitHoleSelect_Click(program);
}

// The selection again, with the sizes that stand in the list.
void ChooseSizesAgain(Program& program) {
  mnuManHoleSelection_Click(program);
  cmdExitHoleSelect_Click(program);
}

void NoCommand(Program& /*program*/) {}

constexpr Command kCommands[] = {NoCommand,
                                 mnuDesignField_Click,
                                 mnuDesignConstSlope_Click,
                                 mnuDesignDualSlope_Click,
                                 mnuComputerHoleSelection_Click,
                                 mnuExistingDesign_Click,
                                 ChooseSizes};

// A text as a file gives it back.
std::string Kept(const std::string& text) {
  return AsTextField(text);
}

// The planted widths go as numbers: one that is typed as 10 may come back as 10.00.
std::vector<std::string> SheetOf(FileProgram& p) {
  std::vector<std::string> cells;
  for (int row = 1; row < p.main.Grid1.rows(); ++row) {
    for (int column = 0; column < 9; ++column) {
      const std::string& text = p.main.Grid1.Text(row, column);
      if (text.empty()) continue;
      const std::string kept = column == kPlantedWidthColumn ? GeneralText(Val(Kept(text))) : Kept(text);
      cells.push_back(std::to_string(row) + "," + std::to_string(column) + " " + kept);
    }
  }
  return cells;
}

struct Same {
  template <typename T>
  bool operator()(const T& now, const T& then) const {
    return now == then;
  }
};

// A file keeps seven digits of a figure, so one that lies between two that are shown may go to either.
struct SameAsShown {
  bool operator()(const std::string& now, const std::string& then) const {
    if (now == then) return true;
    const std::size_t point = now.find('.');
    if (point == std::string::npos || point != then.find('.') || now.size() != then.size()) return false;
    const double last_place = std::pow(10.0, -static_cast<double>(now.size() - point - 1));
    return IsNumber(now) && IsNumber(then) && std::fabs(Val(now) - Val(then)) < 1.5 * last_place;
  }
};

// The place of the first difference and what stands there, empty for none.
template <typename Equal = Same, typename T>
std::string Difference(const std::vector<T>& now, const std::vector<T>& then) {
  std::ostringstream out;
  for (std::size_t i = 0; i < std::max(now.size(), then.size()); ++i) {
    if (i < now.size() && i < then.size() && Equal()(now[i], then[i])) continue;
    out << i << ": ";
    if (i < now.size()) out << now[i];
    out << " for ";
    if (i < then.size()) out << then[i];
    break;
  }
  return out.str();
}

// All that the results show; nothing where none are shown.
std::vector<std::string> ResultsOf(FileProgram& p) {
  MainScreen& main = p.main;
  std::vector<std::string> texts;
  if (!main.Grid2.control.visible) return texts;
  for (int row = 1; row <= p.record.HoleRows; ++row) {
    for (int column = 0; column < 12; ++column) texts.push_back(Kept(main.Grid2.Text(row, column)));
  }
  for (const Control& label : main.frmDisplayLbl) texts.push_back(label.caption);
  for (const Control* label : {&main.lblEffic, &main.lblAvgFurrowFlow, &main.lblSumHoleDia, &main.lblSumStation,
                               &main.lblSumlNumHoles, &main.lblActiveInactive}) {
    texts.push_back(label->caption);
  }
  for (int row = 0; row < main.GridInchesApplied.rows(); ++row) {
    for (int column = 0; column < main.GridInchesApplied.column_count(); ++column) {
      texts.push_back(main.GridInchesApplied.Text(row, column));
    }
  }
  return texts;
}

// What a calculation leaves, to the last bit.
std::vector<double> FiguresOf(const FileProgram& p) {
  const DesignRecord& r = p.record;
  std::vector<double> figures = {static_cast<double>(r.HoleRows),   static_cast<double>(r.Uniformity),
                                 static_cast<double>(r.TotalAcres), static_cast<double>(r.MaxHead),
                                 static_cast<double>(r.AccumGPM),   static_cast<double>(r.CrownSlope),
                                 static_cast<double>(r.DesignType), static_cast<double>(r.MissingData)};
  for (int i = 1; i <= r.HoleRows; ++i) {
    figures.insert(figures.end(), {r.Head[i], static_cast<double>(r.FurrowFlow[i]), static_cast<double>(r.Station[i]),
                                   static_cast<double>(r.PlantedWidth[i]), static_cast<double>(r.DesignElev[i])});
  }
  return figures;
}

// A program with the same preferences, into which the saved file was opened as the menu does.
void OpenIn(FileProgram& second, FileProgram& first) {
  for (std::size_t i = 0; i < 16; ++i) second.main.txtDefault[i].Set(first.main.txtDefault[i].text());
  ReadSoilsTwice(second);
  mnuFileNew_Click(second.program);
  for (std::size_t i = 0; i < 16; ++i) second.main.txtDefault[i].Set(first.main.txtDefault[i].text());
}

// The text of the flow can't be converted, when it is typed and when it is read: both times it stands there all the
// same.
TEST(SavedDesigns, AFlowBeyondAllNumbersOpens) {
  FileProgram first;
  first.TypeSurvey();
  mnuDesignField_Click(first.program);
  EXPECT_THROW(first.main.txtInfo[2].Set("1e39"), RunTimeFault);
  ASSERT_EQ(first.Save(first.Path("a")), "");
  FileProgram second;
  second.FillPreferences();
  EXPECT_EQ(second.Open(first.record.SaveFileName), "");
  EXPECT_EQ(second.main.txtInfo[2].text(), "1e39");
  EXPECT_EQ(SheetOf(second), SheetOf(first));
  EXPECT_EQ(second.record.DesignType, kPlanned);
}

// A planted width goes by the hole of its row where that gives the same number back, and stands in the file by itself
// where it does not: the first hole's is 10 and the second's, ten feet on, is 10 too.
TEST(SavedDesigns, APlantedWidthComesBackAsTheSameNumber) {
  struct Case {
    std::string typed;
    std::string opened;
  };
  for (const Case& c : {Case{"10", "10.00"}, Case{"10.0", "10.00"}, Case{"10.001", "10.001"}, Case{"33", "33"},
                        Case{"", ""}, Case{"0", "0"}}) {
    FileProgram first;
    first.TypeSurvey();
    mnuDesignField_Click(first.program);
    first.main.Grid1.Set(2, kPlantedWidthColumn, c.typed);
    ASSERT_EQ(first.Save(first.Path("a")), "");
    FileProgram second;
    second.FillPreferences();
    ASSERT_EQ(second.Open(first.record.SaveFileName), "");
    EXPECT_EQ(second.main.Grid1.Text(2, kPlantedWidthColumn), c.opened) << c.typed;
  }
}

TEST(SavedDesigns, OpenAsTheyWere) {
  std::map<int, int> shown;
  for (unsigned seed = 0; static_cast<int>(seed) < Designs(); ++seed) {
    SCOPED_TRACE(seed);
    const int type = static_cast<int>(seed % 7);
    RandomUse use(seed);
    FileProgram first;
    ReadSoilsTwice(first);
    use.ChoosePreferences(first);
    use.TypeSurvey(first);
    if (use.Once(2)) {
      first.record.PipeKind = "R";
      first.main.mnuRigidPipe.ticked = true;
    } else {
      first.record.PipeKind = "L";
    }
    first.host.answers.assign(20, true);
    kCommands[type](first.program);
    // A run that gave up went back to the sheet.
    if (type != 0 && first.record.DesignType == kNoDesign) continue;
    use.Afterwards(first);
    if (type == 0) first.record.DesignType = kSurveyOnly;  // as Save As makes it
    const std::vector<std::string> results = ResultsOf(first);
    const int soil = ChosenSoil(first.program);
    ASSERT_EQ(first.Save(first.Path("a.xyz")), "");
    const std::vector<std::string> sheet = SheetOf(first);

    FileProgram second;
    OpenIn(second, first);
    second.host.answers.assign(40, true);
    const std::string message = second.Open(first.record.SaveFileName);
    ASSERT_FALSE(message.starts_with(kOpeningFailed)) << message;
    EXPECT_EQ(Difference(SheetOf(second), sheet), "");
    EXPECT_EQ(ChosenSoil(second.program), soil);
    if (!results.empty() && type != kComputerHoles) {
      EXPECT_EQ(Difference<SameAsShown>(ResultsOf(second), results), "");
      ++shown[type];
    }
    if (type == 0) continue;

    first.host.answers.assign(40, true);
    const Command again = type == kLimitedHoles ? ChooseSizesAgain : kCommands[type];
    again(first.program);
    again(second.program);
    EXPECT_EQ(Difference(FiguresOf(second), FiguresOf(first)), "");
    EXPECT_EQ(Difference(SheetOf(second), SheetOf(first)), "");
    if (type == kComputerHoles) {
      EXPECT_EQ(Difference(ResultsOf(second), ResultsOf(first)), "");
      if (!ResultsOf(first).empty()) ++shown[type];
    }
    if (::testing::Test::HasFailure()) break;
  }
  for (int type = 1; type <= 6; ++type)
    EXPECT_GT(shown[type], Designs() / 20) << "type " << type << " was hardly shown";
}

}  // namespace
}  // namespace torvale

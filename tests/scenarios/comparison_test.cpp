#include "scenarios/comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cctype>
#include <chrono>
#include <map>
#include <thread>

#include "base/format.h"
#include "base/numbers.h"
#include "display/colour_meanings.h"
#include "display/grid_layout.h"
#include "display/hole_summary.h"
#include "engine/survey.h"
#include "record/hole_sizes.h"
#include "record/kinds.h"
#include "scenarios/fields_by_hand.h"
#include "screen/fields.h"
#include "shell/desk.h"

namespace torvale {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

void TypeSample(Session& session, const std::filesystem::path& sample) {
  std::istringstream script(InputPartOf(sample));
  ReplayScript(session, script);
}

int RowOf(const DeskScreen& desk, std::string_view name) {
  for (std::size_t i = 0; i < desk.designs.size(); ++i) {
    if (desk.designs[i].texts[kComparedName] == name) return static_cast<int>(i) + 1;
  }
  ADD_FAILURE() << "no row " << name;
  return 0;
}

// The sizes of the holes along the line, one for each furrow, as the table of results has them.
std::vector<std::string> SizesAlong(const Grid& results) {
  std::vector<std::string> sizes;
  for (int row = 1; row < results.rows(); ++row) {
    if (Val(results.Text(row, kResultFlow)) > 0) sizes.push_back(results.Text(row, kResultOpening));
  }
  return sizes;
}

// The same of the record.
std::vector<std::string> ChosenSizes(const Program& program) {
  std::vector<std::string> sizes;
  for (int row = 1; row <= program.record.HoleRows; ++row) {
    if (program.record.FurrowFlow[row] > 0) sizes.push_back(ChosenSizeName(program, row));
  }
  return sizes;
}

int ChangesAlong(const std::vector<std::string>& sizes) {
  int changes = 0;
  for (std::size_t i = 1; i < sizes.size(); ++i) changes += sizes[i] != sizes[i - 1] ? 1 : 0;
  return changes;
}

// Each size once, the largest first.
std::string SizesOnce(const DesignRecord& record, std::vector<std::string> sizes) {
  const auto larger = [&](const std::string& a, const std::string& b) {
    return HoleSizeByName(record, a) > HoleSizeByName(record, b);
  };
  std::sort(sizes.begin(), sizes.end(), larger);
  sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
  std::string text;
  for (const std::string& size : sizes) text += (text.empty() ? "" : ", ") + size;
  return text;
}

// What is said of a design that is shown: its marks, what its boxes said, what its colours mean.
std::vector<std::string> WarningsShown(Program& program, const std::string& transcript) {
  std::vector<std::string> warnings;
  for (const Figure::Index figure : kWarningFigures) {
    const std::string& mark = program.main.frmDisplayLbl[figure].mark;
    if (!mark.empty()) warnings.push_back(mark);
  }
  std::istringstream lines(transcript);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("message ") && !line.starts_with("question ")) continue;
    const std::size_t end = line.rfind('"');
    const std::size_t begin = line.rfind('"', end - 1) + 1;
    warnings.push_back(line.substr(begin, end - begin));
  }
  for (const char* name : {"lblEffic", "frmDisplayLbl(1)", "frmDisplayLbl(5)", "frmDisplayLbl(15)"}) {
    const Control& control = *FindControl(program, name);
    if (!control.visible || control.back != kYellow) continue;
    std::string meaning(MeaningOfColour(name, kYellow));
    meaning.erase(0, std::string("Yellow: ").size());
    meaning[0] = static_cast<char>(std::toupper(meaning[0]));
    warnings.push_back(meaning);
  }
  return warnings;
}

void ExpectSlopeFigures(Program& program, const ComparedDesign& design) {
  const MainScreen& main = program.main;
  const bool slope = IsSlopeDesign(program.record);
  EXPECT_EQ(design.texts[kComparedSlope].empty(), !slope);
  EXPECT_EQ(design.texts[kComparedFill].empty(), !slope);
  if (!slope) return;
  std::string figure = design.texts[kComparedSlope];
  if (program.record.DesignType == kDualSlope) {
    const std::size_t to = figure.find(" to ");
    ASSERT_NE(to, std::string::npos) << figure;
    EXPECT_TRUE(main.lblCrownSlope.caption.ends_with("from Station  0" + figure.substr(to)))
        << main.lblCrownSlope.caption;
    figure.resize(to);
  }
  if (figure == "0") figure = ".";  // of a level crown the screen shows no digit
  EXPECT_NE(main.lblCrownSlope.caption.find(" = " + figure + " "), std::string::npos) << main.lblCrownSlope.caption;
  Click(program, "mnuProfile");
  EXPECT_EQ("Highest Fill in Crown is " + design.texts[kComparedFill], program.profile.lblFillHeight.caption);
}

// The figures of a row are those that its command leaves on the screen: each is compared with the read-out that shows
// it. The row is clicked, so that the click is shown to be that command.
void ExpectFiguresOfCommand(const std::filesystem::path& sample, const ComparisonRow& row,
                            std::map<std::string_view, int>& made) {
  std::ostringstream transcript;
  Session session(transcript);
  TypeSample(session, sample);
  Program& program = session.program;
  for (const char* size : {"3/8", "1/2", "5/8"}) program.main.listHolesSelected.Add(size);
  program.main.txtBest[0].Set("2");
  program.main.txtBest[1].Set("0.1");
  Click(program, "mnuDesk(0)");
  session.comparison.Settle();
  const int at = RowOf(program.desk, row.name);
  const ComparedDesign design = program.desk.designs.at(static_cast<std::size_t>(at - 1));
  ASSERT_TRUE(design.tried);
  if (!design.made) return;
  ++made[row.name];
  transcript.str("");
  GridPoint(program, "Comparison", at, 0, false);
  const MainScreen& main = program.main;
  const auto label = [&](std::size_t i) { return main.frmDisplayLbl.at(i).caption; };
  EXPECT_EQ(program.record.DesignType, row.kind->type);
  ASSERT_TRUE(main.Grid2.control.visible);
  EXPECT_EQ("Distribution Uniformity = " + design.texts[kComparedUniformity], main.lblEffic.caption);
  EXPECT_EQ(design.texts[kComparedHighestHead], label(1) + " at " + label(3));
  EXPECT_EQ(design.texts[kComparedLowestHead], label(5) + " at " + label(7));
  EXPECT_EQ(design.texts[kComparedGreatestFlow], label(9));
  EXPECT_EQ(design.texts[kComparedLeastFlow], label(11));
  EXPECT_EQ(design.texts[kComparedHours], main.GridInchesApplied.Text(2, 1));  // the row of 1.0 inches
  const std::vector<std::string> sizes = SizesAlong(main.Grid2);
  EXPECT_EQ(design.texts[kComparedChanges], std::to_string(ChangesAlong(sizes)));
  // A rigid pipe shows openings of gates in the table; the holes that they stand for are those of the record.
  if (program.record.PipeKind == "L") {
    EXPECT_EQ(design.texts[kComparedSizes], SizesOnce(program.record, sizes));
  } else {
    EXPECT_EQ(design.texts[kComparedSizes], SizesOnce(program.record, ChosenSizes(program)));
  }
  std::vector<std::string> words = WarningsShown(program, transcript.str());
  if (row.kind == &BestHolesKind()) {
    EXPECT_EQ(main.title, "TORVALE   Best Holes Design");
    EXPECT_NE(design.words.at(1).find(main.lblBestHoles.caption), std::string::npos) << design.words.at(1);
    words.insert(words.begin(), design.words.begin(), design.words.begin() + 2);
  }
  EXPECT_EQ(design.words, words);
  EXPECT_EQ(design.marks[kComparedHighestHead], main.frmDisplayLbl[Figure::kMaxHead].mark);
  EXPECT_EQ(design.marks[kComparedLeastFlow], main.frmDisplayLbl[Figure::kMinFurrowFlow].mark);
  ExpectSlopeFigures(program, design);
}

TEST(Comparison, FiguresAreThoseOfTheCommands) {
  std::map<std::string_view, int> made;
  for (const std::filesystem::path& sample : SampleScripts()) {
    for (const ComparisonRow& row : ComparisonRows()) {
      SCOPED_TRACE(sample.filename().string() + " " + std::string(row.name));
      ExpectFiguresOfCommand(sample, row, made);
    }
  }
  for (const ComparisonRow& row : ComparisonRows()) EXPECT_GE(made[row.name], 2) << row.name;  // of five samples
}

// Of 90, 95 and no figure the uniformity is best at 95; the lower of two highest heads is the better one; a column in
// which all are alike has no best.
TEST(Comparison, MarksTheBestOfEachColumn) {
  DeskScreen desk;
  desk.designs.resize(3);
  for (ComparedDesign& design : desk.designs) design.made = design.tried = true;
  desk.designs[0].values[kComparedUniformity] = 90;
  desk.designs[1].values[kComparedUniformity] = 95;
  desk.designs[0].values[kComparedHighestHead] = 2;
  desk.designs[1].values[kComparedHighestHead] = 3;
  desk.designs[0].texts = {"", "90", "2.00"};
  desk.designs[1].texts = {"", "95", "3.00"};
  for (ComparedDesign& design : desk.designs) {
    design.values[kComparedHours] = 7;
    design.texts[kComparedHours] = "7";
  }
  ShowComparison(desk);
  const auto best = [&](int row, int column) { return desk.Comparison.Back(row, column) == kBestBack; };
  EXPECT_FALSE(best(1, kComparedUniformity));
  EXPECT_TRUE(best(2, kComparedUniformity));
  EXPECT_FALSE(best(3, kComparedUniformity));
  EXPECT_TRUE(best(1, kComparedHighestHead));
  EXPECT_FALSE(best(2, kComparedHighestHead));
  for (int row = 1; row <= 3; ++row) EXPECT_FALSE(best(row, kComparedHours));
  // A design that can't be made is none to be compared with.
  desk.designs[1].made = false;
  ShowComparison(desk);
  EXPECT_FALSE(best(2, kComparedUniformity));
}

// Each thing that a design is refused for, what its row says of it, and where a click on the row leads.
struct Refusal {
  const char* name;
  const char* script;  // what is changed of the sound survey below
  const char* words;   // a part of them
  const char* focus;
  SheetCell cell;
};
std::ostream& operator<<(std::ostream& out, const Refusal& refusal) {
  return out << refusal.name;
}

class RefusedDesignTest : public testing::TestWithParam<Refusal> {};

TEST_P(RefusedDesignTest, SaysWhyAndLeadsToTheCell) {
  std::ostringstream transcript;
  Session session(transcript);
  Program& program = session.program;
  std::istringstream script(
      "type txtDefault(2) \"0.65\"\ntype txtDefault(3) \"140\"\ntype txtInfo(2) \"30\"\ntype txtInfo(3) \"2\"\n"
      "type txtInfo(5) \"E\"\nfill Grid1 1 0\n0\t10\t1320\t20\t15\t5/8\t1\t10\t20\n"
      "100\t10\t1320\t20\t15\t5/8\t1\t10\t20\n200\t10\t1320\t20\t15\t5/8\t1\t10\t20\nend\nclick mnuDesk(0)\n" +
      std::string(GetParam().script));
  ReplayScript(session, script);
  session.comparison.Settle();
  const int at = RowOf(program.desk, "Planned Design");
  const ComparedDesign& design = program.desk.designs.at(static_cast<std::size_t>(at - 1));
  ASSERT_TRUE(design.tried);
  ASSERT_FALSE(design.made);
  const std::string said = program.desk.Comparison.Text(at, kComparedHighestHead);
  EXPECT_NE(said.find(GetParam().words), std::string::npos) << said;
  EXPECT_EQ(program.desk.Comparison.joined().at(at), kComparedHighestHead) << "its words take the rest of the row";
  GridPoint(program, "Comparison", at, kComparedWarning, false);
  EXPECT_EQ(program.main.focus, GetParam().focus);
  if (GetParam().cell.row > 0) {
    EXPECT_EQ(program.main.Grid1.row, GetParam().cell.row);
    EXPECT_EQ(program.main.Grid1.column, GetParam().cell.column);
  }
  EXPECT_FALSE(program.main.Grid2.control.visible);
}

const Refusal kRefusals[] = {
    {"Gpm", "type txtInfo(2) \"\"\n", "GPM", "txtInfo(2)", {}},
    {"TargetHead", "type txtInfo(3) \"\"\n", "Target Head", "txtInfo(3)", {}},
    {"SurveyKind", "type txtInfo(5) \"\"\n", "Enter R for rod readings or E for elevations.", "txtInfo(5)", {}},
    {"PipeDiameter", "fill Grid1 1 4\n\nend\n", "Row 1: the pipe diameter is missing.", "Grid1", {1, kPipeDiaColumn}},
    {"Crown", "fill Grid1 1 1\n\nend\n", "Row 1: the rod reading or elevation is missing.", "Grid1", {1, kCrownColumn}},
    {"StationAmongOthers", "cell Grid1 2 0 \"\"\n", "Row 2: the station is missing.", "Grid1", {2, kStationColumn}},
    {"DataWithoutStation",
     "fill Grid1 4 5\n5/8\t1\nend\n",
     "Row 4: the station is missing.",
     "Grid1",
     {4, kStationColumn}},
    {"HoleCount", "cell Grid1 1 6 \"\"\n", "Row 1: the number of holes is missing.", "Grid1", {1, kHoleCountColumn}},
    {"Mil", "cell Grid1 1 7 \"\"\n", "Row 1: the mil is missing.", "Grid1", {1, kMilColumn}},
    {"StationFalls", "cell Grid1 3 0 \"90\"\n", "the station does not rise", "Grid1", {3, kStationColumn}},
    {"StationTwice", "cell Grid1 3 0 \"100\"\n", "the station does not rise", "Grid1", {3, kStationColumn}},
    {"NoHoles",
     "cell Grid1 1 5 \"\"\ncell Grid1 2 5 \"\"\ncell Grid1 3 5 \"\"\n",
     "No row has holes",
     "Grid1",
     {1, kHoleSizeColumn}},
    {"OneRow",
     "cell Grid1 2 0 \"\"\nfill Grid1 2 0\n\t\t\t\t\t\t\t\t\n\t\t\t\t\t\t\t\t\nend\n",
     "row",
     "Grid1",
     {2, kStationColumn}},
    // 11 holes of 5/8 inch let 11 x (0.625 / 12)^2 x 3.14 / 4 x sqrt(2 x 64.4) x 448.8 x 0.65 = 78 GPM out.
    {"HolesTooSmall", "type txtInfo(2) \"5000\"\n", "the holes let 78 GPM out", "Grid1", {1, kHoleSizeColumn}},
    // A crown that rises by 3 feet towards its head: at station 0 no head is left.
    {"HeadLost",
     "type txtInfo(2) \"30\"\ncell Grid1 1 1 \"13\"\n",
     "loses all its head by station",
     "Grid1",
     {1, kCrownColumn}},
};
INSTANTIATE_TEST_SUITE_P(Refusals, RefusedDesignTest, testing::ValuesIn(kRefusals),
                         [](const auto& refusal) { return std::string(refusal.param.name); });

TEST(Comparison, ARefusedDesignSaysWhyAndLeadsToTheCell) {
  std::ostringstream transcript;
  Session session(transcript);
  TypeSample(session, SampleScripts().at(0));
  Program& program = session.program;
  Click(program, "mnuDesk(0)");
  std::istringstream script("cell Grid1 3 4 \"\"\ncell Grid1 1 4 \"\"\n");
  ReplayScript(session, script);
  const int at = RowOf(program.desk, "Planned Design");
  const ComparedDesign& design = program.desk.designs.at(static_cast<std::size_t>(at - 1));
  EXPECT_TRUE(design.tried);
  EXPECT_FALSE(design.made);
  ASSERT_FALSE(design.words.empty());
  EXPECT_GT(design.cell.row, 0);
  GridPoint(program, "Comparison", at, kComparedWarning, false);
  EXPECT_EQ(program.main.focus, "Grid1");
  EXPECT_EQ(program.main.Grid1.row, design.cell.row);
  EXPECT_EQ(program.main.Grid1.column, design.cell.column);
  EXPECT_FALSE(program.main.Grid2.control.visible);
}

ScenarioResult Done(std::string_view key, float uniformity) {
  ScenarioResult result;
  result.key = key;
  result.outcome = ScenarioOutcome::kDone;
  result.uniformity = uniformity;
  return result;
}

// Against the two selections of holes that could be made; of one that is refused nothing is said.
TEST(Comparison, TellsWhatTheBestHolesGain) {
  std::ostringstream transcript;
  Session session(transcript);
  Program& program = session.program;
  Click(program, "mnuDesk(0)");
  session.comparison.Settle();
  DeskScreen& desk = program.desk;
  ScenarioResult best = Done("best", 94.5F);
  best.proof = "No plan is above 94.7 (0.2 more).";
  best.size_changes = 3;
  const auto words = [&] {
    TakeResult(desk, best);
    ShowComparison(desk);
    return desk.Comparison.Text(RowOf(desk, "Best Holes"), kComparedWarning);
  };
  EXPECT_EQ(words(), best.proof);
  TakeResult(desk, Done("limited", 93.25F));
  EXPECT_EQ(words(), "Uniformity 1.3 above User Holes. " + best.proof);
  TakeResult(desk, Done("computer", 95));
  EXPECT_EQ(words(), "Uniformity 1.3 above User Holes, 0.5 below Computer Holes. " + best.proof);
  EXPECT_EQ(desk.Comparison.Text(RowOf(desk, "Best Holes"), kComparedChanges), "3");
  ScenarioResult refused;
  refused.key = "limited";
  TakeResult(desk, refused);
  EXPECT_EQ(words(), "Uniformity 0.5 below Computer Holes. " + best.proof);
}

// A level line of 15-inch tubing of 10 mil that is to bear .9 feet: the row warns in the words that the design itself
// has, and says nothing of tubing that the table does not know.
TEST(Comparison, WarnsOfTubingInTheWordsOfTheDesign) {
  std::ostringstream transcript;
  Session session(transcript);
  Program& program = session.program;
  std::istringstream script(
      "type txtDefault(2) \"0.65\"\ntype txtDefault(3) \"140\"\ntype txtInfo(2) \"30\"\ntype txtInfo(3) \"2\"\n"
      "type txtInfo(5) \"E\"\nfill Grid1 1 0\n0\t10\t1320\t20\t15\t5/8\t1\t10\t20\n"
      "100\t10\t1320\t20\t15\t5/8\t1\t10\t20\nend\n");
  ReplayScript(session, script);
  const auto words = [&] {
    program.desk.compared_inputs = 0;
    session.comparison.Settle();
    return program.desk.Comparison.Text(RowOf(program.desk, "Planned Design"), kComparedWarning);
  };
  Click(program, "mnuDesk(0)");
  program.pipe_strengths = {{15, 9, 0.9}};
  EXPECT_EQ(words().find("tubing"), std::string::npos) << words();
  program.pipe_strengths = {{15, 10, 0.9}};
  const std::string warning = words();
  GridPoint(program, "Comparison", RowOf(program.desk, "Planned Design"), 0, false);
  const std::string& mark = program.main.frmDisplayLbl[Figure::kMaxHead].mark;
  EXPECT_FALSE(mark.empty());
  EXPECT_TRUE(warning.starts_with(mark)) << warning;
}

// Some words of boxes end without a full stop, and others follow them in the row.
TEST(Comparison, WarningsAreSentences) {
  ScenarioResult result = Done("computer", 95);
  result.warnings = {"Said in a box,\rin two lines", "Is it?", "The last."};
  DeskScreen desk;
  desk.designs.resize(1);
  desk.designs[0].key = "computer";
  TakeResult(desk, result);
  ShowComparison(desk);
  EXPECT_EQ(desk.Comparison.Text(1, kComparedWarning), "Said in a box, in two lines. Is it? The last.");
}

// Every edit asks anew, at once; the answer that stands in the end is that of the last one.
TEST(LiveComparison, FollowsTheLastEdit) {
  std::ostringstream transcript;
  Session session(transcript);
  TypeSample(session, SampleScripts().at(0));
  Program& program = session.program;
  std::atomic<int> told = 0;
  LiveComparison live(program, [&] { ++told; });
  live.Follow();
  EXPECT_EQ(program.desk.compared_inputs, 0U) << "closed, and asked all the same";
  Click(program, "mnuDesk(0)");
  for (int gpm = 200; gpm <= 300; ++gpm) {
    TypeText(program, "txtInfo(2)", std::to_string(gpm));
    live.Follow();
    live.Take();
  }
  const auto begun = steady_clock::now();
  const auto complete = [&] {
    return std::all_of(program.desk.designs.begin(), program.desk.designs.end(),
                       [](const ComparedDesign& d) { return d.tried; });
  };
  QuietProgram quiet;
  const ScenarioResult last = quiet.Run(InputOf(program), kConstantSlope);
  const std::string flow = Format(static_cast<double>(last.max_furrow_flow), "####.00");
  const auto settled = [&] {
    return complete() && program.desk.designs.at(static_cast<std::size_t>(RowOf(program.desk, "Constant Slope") - 1))
                                 .texts[kComparedGreatestFlow] == flow;
  };
  while (!settled() && steady_clock::now() - begun < seconds(60)) {
    live.Take();
    std::this_thread::sleep_for(milliseconds(1));
  }
  EXPECT_TRUE(settled());
  EXPECT_GE(told, 7);
  EXPECT_FALSE(live.Take()) << "nothing more comes";
}

}  // namespace
}  // namespace torvale

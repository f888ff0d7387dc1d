#include "scenarios/comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "base/format.h"
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

// The figures of a row are those that its command leaves on the screen: each is compared with the read-out that shows
// it. The row is clicked, so that the click is shown to be that command.
void ExpectFiguresOfCommand(const std::filesystem::path& sample, const ComparisonRow& row, int& made) {
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
  ++made;
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
  // The runs of the hole summary: a change of size lies between each two of them.
  const auto runs = std::count(main.lblSumHoleDia.caption.begin(), main.lblSumHoleDia.caption.end(), '/');
  if (program.record.PipeKind == "L") {
    EXPECT_EQ(design.texts[kComparedChanges], std::to_string(runs - 1));
  }
  if (row.kind == &BestHolesKind()) {
    EXPECT_EQ(main.title, "TORVALE   Best Holes Design");
    EXPECT_NE(design.words.at(1).find(main.lblBestHoles.caption), std::string::npos) << design.words.at(1);
  }
  const bool slope = row.kind->type == kConstantSlope || row.kind->type == kDualSlope;
  EXPECT_EQ(design.texts[kComparedSlope].empty(), !slope);
  if (slope) {
    const std::string figure = design.texts[kComparedSlope].substr(0, design.texts[kComparedSlope].find(' '));
    EXPECT_NE(main.lblCrownSlope.caption.find(" = " + figure + " "), std::string::npos) << main.lblCrownSlope.caption;
    EXPECT_EQ(design.texts[kComparedFill], Format(static_cast<double>(program.record.HighestFill), "##.00"));
  }
}

TEST(Comparison, FiguresAreThoseOfTheCommands) {
  int made = 0;
  for (const std::filesystem::path& sample : SampleScripts()) {
    for (const ComparisonRow& row : ComparisonRows()) {
      SCOPED_TRACE(sample.filename().string() + " " + std::string(row.name));
      ExpectFiguresOfCommand(sample, row, made);
    }
  }
  EXPECT_GT(made, 24);  // of thirty-five
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

#include "shell/stale.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "reports/csv.h"
#include "reports/phone_page.h"
#include "reports/phone_picture.h"
#include "reports/stale_mark.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

// A level line of 26 holes, shown as a planned design for 400 GPM.
struct StaleTest : testing::Test {
  StaleTest() {
    StartProgram(program);
    TypeText(program, "txtInfo(2)", "400");
    TypeText(program, "txtInfo(3)", "2");
    TypeText(program, "txtInfo(5)", "E");
    Guarded(program, [&] {
      for (const int row : {1, 2}) {
        const char* cells[] = {row == 1 ? "0" : "150", "10", "600", "6", "15", "7/8", "1", "10", "6"};
        for (int column = 0; column < 9; ++column) program.main.Grid1.Set(row, column, cells[column]);
      }
    });
    Click(program, "mnuDesignField");
  }

  FakeHost host;
  Program program{host};
};

TEST_F(StaleTest, NothingIsStaleAfterARun) {
  ASSERT_TRUE(program.main.Grid2.control.visible);
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
  TypeText(program, "txtInfo(0)", "Another name");
  TypeText(program, "txtInfo(4)", "Another place");
  EXPECT_EQ(program.main.cmdReCalc.mark, "") << "names enter no design";
  TypeText(program, "txtInfo(2)", "400 ");
  EXPECT_EQ(program.main.cmdReCalc.mark, "") << "a blank makes no other flow";
}

TEST_F(StaleTest, ChangesAreToldUntilTheyAreTakenBackOrWorkedOut) {
  TypeText(program, "txtInfo(3)", "3");
  TypeText(program, "txtInfo(2)", "380");
  const std::string both = "The figures shown are for GPM 400 and Target Head 2: press Re-Calculate.";
  EXPECT_EQ(program.main.cmdReCalc.mark, both);
  EXPECT_EQ(program.main.txtInfo[2].control.mark, both);
  EXPECT_EQ(program.main.txtInfo[3].control.mark, both);
  EXPECT_EQ(program.main.sbStatusBar.caption, both);
  TypeText(program, "txtInfo(2)", "400");
  EXPECT_EQ(program.main.cmdReCalc.mark, "The figures shown are for Target Head 2: press Re-Calculate.");
  EXPECT_EQ(program.main.txtInfo[2].control.mark, "");
  Click(program, "cmdReCalc");
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
  EXPECT_EQ(program.main.txtInfo[3].control.mark, "");
}

TEST_F(StaleTest, GoesWithTheResults) {
  TypeText(program, "txtInfo(2)", "380");
  Click(program, "mnuWindowInfo");
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
  EXPECT_EQ(program.main.txtInfo[2].control.mark, "");
}

// A text that is no number keeps its own mark.
TEST_F(StaleTest, AFalseTextIsToldFirst) {
  TypeText(program, "txtInfo(2)", "38O");
  EXPECT_EQ(program.main.txtInfo[2].control.mark.find("The figures shown"), std::string::npos);
  EXPECT_FALSE(program.main.txtInfo[2].control.mark.empty());
  EXPECT_FALSE(program.main.cmdReCalc.mark.empty());
}

// The mark stands at the head of every page, and nowhere once the figures are those of the fields again.
TEST_F(StaleTest, PagesAreMarked) {
  Document document;
  document.operations = {PrintedText{1, 1, 10, "first"}, NewPage{}, PrintedText{1, 1, 10, "second"}};
  MarkStalePages(program, document);
  EXPECT_EQ(document.operations.size(), 3U);
  TypeText(program, "txtInfo(2)", "380");
  MarkStalePages(program, document);
  ASSERT_EQ(document.operations.size(), 5U);
  EXPECT_EQ(std::get<PrintedText>(document.operations[0]).text, "NOT RE-CALCULATED");
  EXPECT_TRUE(std::holds_alternative<NewPage>(document.operations[2]));
  EXPECT_EQ(std::get<PrintedText>(document.operations[3]).text, "NOT RE-CALCULATED");
}

// Whatever enters the design and is changed behind its figures.
struct Change {
  const char* name;
  const char* before;  // what is done ahead of the design
  void (*change)(Program&);
  const char* told;   // what the figures are for
  const char* field;  // that is marked, where it is one of the screen's
};
std::ostream& operator<<(std::ostream& out, const Change& change) {
  return out << change.name;
}

void SetText(Program& program, const char* field, const char* text) {
  TypeText(program, field, text);
}

// In the panel of the preferences, which is left again.
void Prefer(Program& program, const char* field, const char* text) {
  Click(program, "mnuPreference");
  TypeText(program, field, text);
  Click(program, "btnDefaultExit");
}

const Change kChanges[] = {
    {"Gpm", "", [](Program& p) { SetText(p, "txtInfo(2)", "380"); }, "GPM 400", "txtInfo(2)"},
    {"TargetHead", "", [](Program& p) { SetText(p, "txtInfo(3)", "3"); }, "Target Head 2", "txtInfo(3)"},
    {"SurveyKind", "", [](Program& p) { SetText(p, "txtInfo(5)", "R"); }, "Rod Readings or Elevations E", "txtInfo(5)"},
    {"Orifice", "", [](Program& p) { Prefer(p, "txtDefault(2)", ".7"); }, "Preferences, Orifice Coefficient 0.65",
     nullptr},
    {"Roughness", "", [](Program& p) { Prefer(p, "txtDefault(3)", "150"); }, "Preferences, Hazen-Williams C 140",
     nullptr},
    {"Cell", "", [](Program& p) { Guarded(p, [&p] { p.main.Grid1.Set(2, 2, "700"); }); },
     "the survey before row 2, Furrow Length was changed", nullptr},
    {"GateForm", "mnuRigidPipe", [](Program& p) { Prefer(p, "txtDefault(11)", "C"); }, "Preferences, Type of Gate R",
     nullptr},
    {"GateSize", "mnuRigidPipe", [](Program& p) { Prefer(p, "txtDefault(12)", "2"); }, "Preferences, Size of Gate 1.2",
     nullptr},
};

struct StaleInputTest : StaleTest, testing::WithParamInterface<Change> {};

TEST_P(StaleInputTest, MarksItsFieldAndReCalculate) {
  const Change& change = GetParam();
  if (*change.before != '\0') {
    Click(program, "mnuWindowInfo");
    Click(program, change.before);
    Click(program, "mnuDesignField");
    ASSERT_EQ(program.main.cmdReCalc.mark, "");
  }
  ASSERT_TRUE(program.main.Grid2.control.visible);
  change.change(program);
  const std::string mark = "The figures shown are for " + std::string(change.told) + ": press Re-Calculate.";
  EXPECT_EQ(program.main.cmdReCalc.mark, mark);
  EXPECT_EQ(program.main.sbStatusBar.caption, mark);
  if (change.field != nullptr) {
    EXPECT_EQ(FindControl(program, change.field)->mark, mark);
  }
  for (const char* field : {"txtInfo(2)", "txtInfo(3)", "txtInfo(5)"}) {
    const bool marked = change.field != nullptr && std::string_view(field) == change.field;
    EXPECT_EQ(FindControl(program, field)->mark.empty(), !marked) << field;
  }
  Click(program, "cmdReCalc");
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
}

INSTANTIATE_TEST_SUITE_P(Changes, StaleInputTest, testing::ValuesIn(kChanges),
                         [](const auto& change) { return std::string(change.param.name); });

// A switch of the pipe works the shown design out anew, so that its figures are never those of the other pipe.
TEST_F(StaleTest, TheOtherPipeIsWorkedOutAtOnce) {
  Click(program, "mnuRigidPipe");
  EXPECT_TRUE(program.main.Grid2.control.visible);
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
  TypeText(program, "txtInfo(2)", "380");
  EXPECT_NE(program.main.cmdReCalc.mark, "");
  Click(program, "mnuLayflatPipe");
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
}

// What is only shown once more is not worked out anew: the other table, the panel of preferences, what was printed.
TEST_F(StaleTest, StaysStaleWhateverIsShownOfIt) {
  TypeText(program, "txtInfo(2)", "380");
  const std::string mark = program.main.cmdReCalc.mark;
  ASSERT_NE(mark, "");
  for (const char* command : {"cmdDesignToggle", "mnuPrintSummary", "mnuPrintComplete", "mnuPreview(1)",
                              "mnuExportPdf(1)", "mnuProfile", "btnBack", "tbToolBar(PrintComplete)"}) {
    host.answers = {true};
    Click(program, command);
    EXPECT_EQ(program.main.cmdReCalc.mark, mark) << command;
  }
  Click(program, "cmdReCalc");
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
}

// The sizes of a user's selection and the heads that it goes through enter no other design.
TEST_F(StaleTest, WhatEntersOneTypeAloneIsStaleThereAlone) {
  program.main.listHolesSelected.Add("7/8");
  Click(program, "mnuDesignField");
  Prefer(program, "txtDefault(13)", "3");
  Guarded(program, [this] { program.main.listHolesSelected.Add("1"); });
  EXPECT_EQ(program.main.cmdReCalc.mark, "");
  Click(program, "mnuManHoleSelection");
  Click(program, "cmdExitHoleSelect");
  ASSERT_EQ(program.record.DesignType, kLimitedHoles);
  ASSERT_EQ(program.main.cmdReCalc.mark, "");
  Guarded(program, [this] { program.main.txtDefault[13].Set("2.5"); });
  EXPECT_EQ(program.main.cmdReCalc.mark,
            "The figures shown are for Preferences, Highest Target Head 3: press Re-Calculate.");
  Guarded(program, [this] { program.main.listHolesSelected.Add("3/4"); });
  EXPECT_EQ(program.main.cmdReCalc.mark,
            "The figures shown are for Preferences, Highest Target Head 3 and other hole sizes: press Re-Calculate.");
}

// All that prints, previews or exports the figures.
constexpr const char* kLeavingTheScreen[] = {
    "mnuPrintSummary",  "mnuPrintComplete", "mnuPrtHoleSummary", "mnuPreview(0)",          "mnuPreview(1)",
    "mnuPreview(2)",    "mnuExportPdf(0)",  "mnuExportPdf(1)",   "mnuExportPdf(2)",        "mnuExportCsv",
    "mnuExportHoleCsv", "mnuExportPhone",   "mnuExportPicture",  "tbToolBar(PrintSummary)"};

TEST_F(StaleTest, ExportsAskFirst) {
  TypeText(program, "txtInfo(2)", "380");
  for (const char* entry : kLeavingTheScreen) {
    host.questions.clear();
    host.answers = {false};
    EXPECT_EQ(Click(program, entry), Reach::kUsable) << entry;
    ASSERT_EQ(host.questions.size(), 1U) << entry;
    EXPECT_EQ(host.questions[0].title, "Not Re-Calculated");
    EXPECT_EQ(host.questions[0].body,
              "The figures shown are for GPM 400: press Re-Calculate. Go on with the figures as they are?");
  }
  EXPECT_TRUE(host.printed.empty());
  EXPECT_TRUE(host.previewed.empty());
  EXPECT_TRUE(host.dialogs.empty());
}

// With a Yes every page that is printed, previewed or written has the mark.
TEST_F(StaleTest, EveryPageThatLeavesTheScreenIsMarked) {
  const auto expect_marked = [](const Document& document) {
    int pages = 1;
    int marks = 0;
    for (const PrintOperation& operation : document.operations) {
      pages += std::holds_alternative<NewPage>(operation) ? 1 : 0;
      const auto* text = std::get_if<PrintedText>(&operation);
      marks += text != nullptr && text->text == "NOT RE-CALCULATED" ? 1 : 0;
    }
    EXPECT_EQ(marks, pages);
  };
  TypeText(program, "txtInfo(2)", "380");
  for (const char* entry : {"mnuPrintSummary", "mnuPrintComplete", "mnuPrtHoleSummary"}) {
    host.answers = {true};
    Click(program, entry);
  }
  for (const char* entry : {"mnuPreview(0)", "mnuPreview(1)", "mnuPreview(2)"}) {
    host.answers = {true};
    Click(program, entry);
  }
  for (const char* entry : {"mnuExportPdf(0)", "mnuExportPdf(1)", "mnuExportPdf(2)"}) {
    host.answers = {true};
    host.paths = {std::string(entry) + ".pdf"};
    Click(program, entry);
  }
  EXPECT_EQ(host.printed.size(), 3U);
  EXPECT_EQ(host.previewed.size(), 3U);
  EXPECT_EQ(host.pdfs.size(), 3U);
  for (const Document& document : host.printed) expect_marked(document);
  for (const Document& document : host.previewed) expect_marked(document);
  for (const auto& [path, document] : host.pdfs) expect_marked(document);
}

TEST_F(StaleTest, TheCrownProfileAsksFirstAndIsMarked) {
  Click(program, "mnuProfile");
  EXPECT_EQ(program.profile.lblProfileName.caption.find("NOT RE-CALCULATED"), std::string::npos);
  TypeText(program, "txtInfo(2)", "380");
  int printed = 0;
  host.print_profile = [&] { return ++printed > 0; };
  for (const char* button : {"btnPrintProfile", "btnExportPicture"}) {
    host.questions.clear();
    host.answers = {false};
    Click(program, button);
    ASSERT_EQ(host.questions.size(), 1U) << button;
  }
  EXPECT_EQ(printed, 0);
  EXPECT_TRUE(host.messages.empty());
  host.answers = {true};
  Click(program, "btnPrintProfile");
  EXPECT_EQ(printed, 1);
  EXPECT_TRUE(program.profile.lblProfileName.caption.ends_with("   NOT RE-CALCULATED"))
      << program.profile.lblProfileName.caption;
}

// A line whose crown dips, with stakes: what leaves the window of stakes is marked and asked about as well.
TEST_F(StaleTest, StakesAskFirstAndAreMarked) {
  Guarded(program, [&] {
    for (int column = 0; column < 9; ++column) program.main.Grid1.Set(3, column, program.main.Grid1.Text(2, column));
    program.main.Grid1.Set(2, 0, "60");
    program.main.Grid1.Set(2, 1, "9.9");
  });
  Click(program, "mnuDesignConstSlope");
  ASSERT_EQ(Click(program, "mnuStakes"), Reach::kUsable);
  TypeText(program, "txtInfo(2)", "380");
  for (const char* button : {"btnPrintStakes", "btnPreviewStakes", "btnPdfStakes", "btnCsvStakes"}) {
    host.questions.clear();
    host.answers = {false};
    Click(program, button);
    ASSERT_EQ(host.questions.size(), 1U) << button;
    EXPECT_EQ(host.questions[0].title, "Not Re-Calculated");
  }
  EXPECT_EQ(program.stakes.frmStakes.caption, "Stakes");
  Click(program, "btnCloseStakes");
  Click(program, "mnuStakes");
  EXPECT_EQ(program.stakes.frmStakes.caption, "Stakes: NOT RE-CALCULATED");
  host.answers = {true};
  Click(program, "btnPreviewStakes");
  ASSERT_EQ(host.previewed.size(), 1U);
  const auto* mark = std::get_if<PrintedText>(&host.previewed[0].operations.front());
  ASSERT_NE(mark, nullptr);
  EXPECT_EQ(mark->text, "NOT RE-CALCULATED");
}

// A spreadsheet has the mark over a column of its own, so that headings stay headings and rows stay rows.
TEST_F(StaleTest, TablesForSpreadsheetsAreMarked) {
  const std::string fresh = HoleSummaryCsv(program);
  EXPECT_EQ(fresh.find("NOT RE-CALCULATED"), std::string::npos);
  EXPECT_EQ(ResultTableCsv(program).find("NOT RE-CALCULATED"), std::string::npos);
  TypeText(program, "txtInfo(2)", "380");
  // One run of 7/8 from 0 to 150 feet, 26 holes.
  EXPECT_EQ(HoleSummaryCsv(program),
            "Hole Diameter (inches),First Station (feet),Last Station (feet),Number of Holes,NOT RE-CALCULATED\r\n"
            "7/8,0,150,26,The figures shown are for GPM 400: press Re-Calculate.\r\n");
  const std::string table = ResultTableCsv(program);
  const std::string first = table.substr(0, table.find("\r\n"));
  EXPECT_TRUE(first.ends_with(",NOT RE-CALCULATED")) << first;
  // Every row is as long as its headings.
  const auto commas = std::count(first.begin(), first.end(), ',');
  for (std::size_t at = table.find("\r\n") + 2; at < table.size(); at = table.find("\r\n", at) + 2) {
    const std::string row = table.substr(at, table.find("\r\n", at) - at);
    EXPECT_EQ(std::count(row.begin(), row.end(), ','), commas) << row;
  }
  Click(program, "cmdReCalc");
  EXPECT_EQ(HoleSummaryCsv(program), fresh);
}

TEST_F(StaleTest, PageAndPictureForAPhoneAreMarked) {
  EXPECT_EQ(PhonePage(CrewSheetOf(program)).find("id=\"stale\""), std::string::npos);
  TypeText(program, "txtInfo(2)", "380");
  EXPECT_NE(PhonePage(CrewSheetOf(program))
                .find("<section id=\"stale\"><b>NOT RE-CALCULATED</b>The figures shown are for GPM 400: press "
                      "Re-Calculate.</section>"),
            std::string::npos);
  const Document picture = PhonePicture(CrewSheetOf(program));
  const auto* mark = std::get_if<PrintedText>(&picture.operations.front());
  ASSERT_NE(mark, nullptr);
  EXPECT_EQ(mark->text, "NOT RE-CALCULATED");
}

}  // namespace
}  // namespace torvale

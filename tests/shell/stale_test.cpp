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

TEST_F(StaleTest, ExportsAskFirst) {
  TypeText(program, "txtInfo(2)", "380");
  for (const char* entry : {"mnuPrintSummary", "mnuPreview(1)", "mnuExportPdf(2)", "mnuExportCsv", "mnuExportHoleCsv",
                            "mnuExportPhone", "mnuExportPicture"}) {
    host.questions.clear();
    host.answers = {false};
    Click(program, entry);
    ASSERT_EQ(host.questions.size(), 1U) << entry;
    EXPECT_EQ(host.questions[0].title, "Not Re-Calculated");
  }
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

#include "shell/stale.h"

#include <gtest/gtest.h>

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
  for (const char* entry :
       {"mnuPrintSummary", "mnuPreview(1)", "mnuExportPdf(2)", "mnuExportCsv", "mnuExportHoleCsv"}) {
    host.questions.clear();
    host.answers = {false};
    Click(program, entry);
    ASSERT_EQ(host.questions.size(), 1U) << entry;
    EXPECT_EQ(host.questions[0].title, "Not Re-Calculated");
  }
}

}  // namespace
}  // namespace torvale

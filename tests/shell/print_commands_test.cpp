// The print commands, from the file menu to the host.
#include "reports/print_commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "shell/commands.h"
#include "shell/events.h"
#include "shell/level_field.h"
#include "shell/start_up.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

// A planned design on the screen: a hole of 5/8 inch each 20 feet on 100 feet of level pipe.
struct PrintCommandsTest : ::testing::Test {
  PrintCommandsTest() {
    StartProgram(program);
    TypeLevelField(program);
  }
  void Design() { ASSERT_EQ(Click(program, "mnuDesignField"), Reach::kUsable); }

  FakeHost host;
  Program program{host};
};

TEST_F(PrintCommandsTest, NothingIsPrintedWithoutResults) {
  for (const char* entry :
       {"mnuPrintSummary", "mnuPrintComplete", "mnuPrtHoleSummary", "mnuPreview(0)", "mnuExportPdf(2)"}) {
    EXPECT_EQ(Click(program, entry), Reach::kDisabled) << entry;
  }
  Design();
  EXPECT_EQ(Click(program, "mnuPrintSummary"), Reach::kUsable);
  Click(program, "mnuWindowInfo");
  EXPECT_EQ(Click(program, "mnuPrintSummary"), Reach::kDisabled);
  EXPECT_EQ(host.printed.size(), 1U);
}

TEST_F(PrintCommandsTest, EachCopyIsADocument) {
  Design();
  host.copies = 3;
  Click(program, "mnuPrintComplete");
  Click(program, "mnuPrtHoleSummary");
  ASSERT_EQ(host.printed.size(), 6U);
  EXPECT_EQ(host.printed[2].title, "Complete Design");
  EXPECT_EQ(host.printed[0].operations, host.printed[2].operations);
  EXPECT_EQ(host.printed[5].title, "Hole Summary");
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PrintCommandsTest, ACancelledDialogIsSilent) {
  Design();
  host.copies = std::nullopt;
  Click(program, "mnuPrintSummary");
  EXPECT_EQ(host.printer_dialogs, 1);
  EXPECT_TRUE(host.printed.empty());
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PrintCommandsTest, WithoutAPrinterNothingIsAsked) {
  Design();
  host.has_printer = false;
  Click(program, "mnuPrintSummary");
  EXPECT_EQ(host.printer_dialogs, 0);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_TRUE(host.messages[0].body.starts_with("No printer is installed on this computer."));
  EXPECT_TRUE(host.messages[0].body.ends_with(" print Error"));
}

TEST_F(PrintCommandsTest, APrinterThatRefusesIsToldOnce) {
  Design();
  host.copies = 5;
  host.printer_works = false;
  Click(program, "mnuPrintSummary");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "The printer did not take the report. print Error");
}

// A gate of no width: the opening is a division by zero.
TEST_F(PrintCommandsTest, AFaultOfTheReportIsTold) {
  Design();
  program.record.PipeKind = "R";
  program.main.txtDefault[12].Set("0");
  host.answers = {true};  // the figures are those of the pipe before
  Click(program, "mnuPrtHoleSummary");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "A number was to be divided by zero. print Error");
  EXPECT_TRUE(host.printed.empty());
}

TEST_F(PrintCommandsTest, PreviewAndPdfShowWhatPrintingPrints) {
  Design();
  program.record.DisplayFileName = "/designs/north.v2.PFD";
  const char* const previews[] = {"mnuPreview(0)", "mnuPreview(1)", "mnuPreview(2)"};
  const char* const exports[] = {"mnuExportPdf(0)", "mnuExportPdf(1)", "mnuExportPdf(2)"};
  const char* const names[] = {"Summary", "Complete Design", "Hole Summary"};
  for (std::size_t i = 0; i < 3; ++i) {
    host.paths.emplace_back("out.pdf");
    Click(program, previews[i]);
    Click(program, exports[i]);
    ASSERT_EQ(host.previewed.size(), i + 1);
    EXPECT_EQ(host.previewed[i].title, names[i]);
    EXPECT_EQ(host.previewed[i].operations, host.pdfs["out.pdf"].operations);
    EXPECT_EQ(std::filesystem::path(host.dialogs.back().name).generic_string(),
              "/designs/north.v2 " + std::string(names[i]) + ".pdf");
  }
  EXPECT_EQ(host.printer_dialogs, 0);
  EXPECT_TRUE(program.main.sbStatusBar.caption.starts_with("Saved out.pdf in " +
                                                           std::filesystem::current_path().root_path().string()));
}

TEST_F(PrintCommandsTest, AReportWithoutAnExtensionIsADocument) {
  Design();
  host.paths.emplace_back("sum");
  Click(program, "mnuExportPdf(0)");
  EXPECT_EQ(host.pdfs.count("sum.pdf"), 1U);
  EXPECT_EQ(host.dialogs.back().written("sum"), "sum.pdf");
}

TEST_F(PrintCommandsTest, PreviewAndPdfLeaveTheTableOnTheScreen) {
  Design();
  MainScreen& main = program.main;
  main.Grid2.SetCurrent(4, 3);
  main.Grid2.top_row = 3;
  main.lblAcresTotal.caption = "Total Acres = 0.9   Acres Selected = 0.3";
  const auto cells = [&] {
    std::string texts;
    for (int row = 0; row < 10; ++row) {
      for (int column = 0; column < 12; ++column) texts += main.Grid2.Text(row, column) + "|";
    }
    return texts;
  };
  const std::string table = cells();
  for (const char* entry : {"mnuPreview(0)", "mnuExportPdf(0)", "mnuPreview(2)"}) {
    Click(program, entry);
    EXPECT_EQ(cells(), table) << entry;
    EXPECT_EQ(main.cmdDesignToggle.caption, "Complete Design");
    EXPECT_EQ(main.Grid2.row, 4);
    EXPECT_EQ(main.Grid2.top_row, 3);
    EXPECT_EQ(main.lblAcresTotal.caption, "Total Acres = 0.9   Acres Selected = 0.3");
  }
  Click(program, "mnuPrintSummary");  // printing leaves its own table there
  EXPECT_NE(cells(), table);
}

TEST_F(PrintCommandsTest, AFileThatCannotBeWrittenIsTold) {
  Design();
  host.paths.emplace_back("out.pdf");
  host.printer_works = false;
  Click(program, "mnuExportPdf(0)");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "The report could not be written to out.pdf: Input/output error.");
  // A cancelled dialog writes nothing and says nothing.
  Click(program, "mnuExportPdf(0)");
  EXPECT_EQ(host.messages.size(), 1U);
}

}  // namespace
}  // namespace torvale

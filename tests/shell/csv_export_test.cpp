#include "shell/csv_export.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "reports/csv.h"
#include "shell/commands.h"
#include "shell/started_program.h"
#include "support/file_bytes.h"

namespace torvale {
namespace {

using CsvExportTest = StartedProgramTest;

TEST_F(CsvExportTest, IsOfferedOnlyWhileResultsAreShown) {
  for (const char* entry : {"mnuExportCsv", "mnuExportHoleCsv"}) {
    program.main.Grid2.control.visible = false;
    EXPECT_EQ(Click(program, entry), Reach::kDisabled);
    program.main.Grid2.control.visible = true;
    EXPECT_EQ(Click(program, entry), Reach::kUsable);
  }
  EXPECT_EQ(host.dialogs.size(), 2U);  // both cancelled
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(CsvExportTest, WritesTheFileAndAddsTheExtension) {
  program.main.Grid2.Set(1, 0, "0");
  host.paths = {host.ProgramFolder() + "/table", host.ProgramFolder() + "/holes.CSV"};
  mnuExportCsv_Click(program);
  mnuExportHoleCsv_Click(program);
  EXPECT_EQ(BytesOf(host.ProgramFolder() + "/table.csv"), ResultTableCsv(program));
  EXPECT_EQ(BytesOf(host.ProgramFolder() + "/holes.CSV"), HoleSummaryCsv(program));
  EXPECT_FALSE(HoleSummaryCsv(program).empty());
  EXPECT_EQ(program.main.sbStatusBar.caption, "Saved holes.CSV in " + host.ProgramFolder());
}

// A design without a file is known by its name and kind; what parts folders is no part of a file's name.
TEST_F(CsvExportTest, TheDialogProposesTheDesignsName) {
  program.main.txtInfo[0].Set("East 40/2");
  program.main.title = "TORVALE   Planned Design";
  mnuExportCsv_Click(program);
  EXPECT_EQ(host.dialogs.back().name, "East 40-2 Planned Design Table.csv");
  EXPECT_EQ(host.dialogs.back().written("/a/b"), "/a/b.csv");
  EXPECT_EQ(host.dialogs.back().written("/a/b.CSV"), "/a/b.CSV");
  program.record.DisplayFileName = "/designs/north.v2.PFD";
  mnuExportHoleCsv_Click(program);
  EXPECT_EQ(std::filesystem::path(host.dialogs.back().name).generic_string(), "/designs/north.v2 Hole Summary.csv");
}

TEST_F(CsvExportTest, AFileThatCanNotBeWrittenIsToldOfWithTheReason) {
  host.paths = {"/no such folder/table.csv"};
  mnuExportCsv_Click(program);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "/no such folder/table.csv could not be written: No such file or directory.");
}

}  // namespace
}  // namespace torvale

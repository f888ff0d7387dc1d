#include "files/file_commands.h"

#include "file_program.h"

namespace torvale {
namespace {

struct FileCommandsTest : FilesTest {
  // The current directory is the program's folder: names without a folder land there.
  FileCommandsTest() { std::filesystem::current_path(host.ProgramFolder()); }
  ~FileCommandsTest() override { std::filesystem::current_path(before_); }

  std::vector<std::string> Recent() {
    std::vector<std::string> names;
    for (int i = 0; i < 6; ++i) names.push_back(record.RecentFiles[i]);
    return names;
  }
  std::vector<std::string> Captions() {
    std::vector<std::string> names;
    for (const Control& entry : main.mnuFileList) names.push_back(entry.caption);
    return names;
  }

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
};

using Names = std::vector<std::string>;

// Open

TEST_F(FileCommandsTest, OpenShowsItsDialogWithTheFilterOfThePreference) {
  const std::pair<const char*, int> filters[] = {{"LHD", 1}, {"PFD", 2}, {"CSD", 3}, {"DSD", 4}, {"CSH", 5},
                                                 {"XFD", 6}, {"*.*", 7}, {"xfd", 1}, {"", 1},    {".PFD", 1}};
  for (const auto& [text, filter] : filters) {
    main.txtDefault[15].Set(text);
    mnuFileOpen_Click(program);
    EXPECT_EQ(host.dialogs.back().filter, filter) << text;
  }
  EXPECT_EQ(host.dialogs.back().title, "Open");
  EXPECT_EQ(host.dialogs.back().name, "");
  EXPECT_EQ(
      host.dialogs.back().filters,
      "Limit Computer Hole Selection (*.LHD)|*.LHD|Planned Design (*.PFD)|*.PFD|Constant Slope (*.CSD)|*.CSD|Dual "
      "Slope Crown (*.DSD)|*.DSD|Computer Selected Holes (*.CSH)|*.CSH|Existing Field Design (*.XFD)|*.XFD| All "
      "file types (*.*) | *.*");
}

// An empty folder stands for the one that the desktop's last dialog was in.
TEST_F(FileCommandsTest, OpenBeginsAmongTheSamplesUntilThereIsAListOfDesigns) {
  mnuFileOpen_Click(program);
  EXPECT_EQ(host.dialogs.back().folder, "");
  std::filesystem::create_directory(Path("samples"));
  mnuFileOpen_Click(program);
  EXPECT_EQ(std::filesystem::path(host.dialogs.back().folder), std::filesystem::path(Path("samples")));
  host.WriteFile("RecentTORVALEFileName.Dat", "");
  mnuFileOpen_Click(program);
  EXPECT_EQ(host.dialogs.back().folder, "");
}

TEST_F(FileCommandsTest, ACancelledOrEmptyOpenChangesNothing) {
  main.Grid1.Set(1, 0, "5");
  record.OpenedFileName = "before";
  for (const std::optional<std::string>& path : {std::optional<std::string>(), std::optional<std::string>("")}) {
    host.paths.push_back(path);
    mnuFileOpen_Click(program);
    EXPECT_EQ(main.Grid1.Text(1, 0), "5");
    EXPECT_EQ(record.OpenedFileName, "before");
    EXPECT_EQ(Recent(), (Names{"", "", "", "", "", ""}));
    EXPECT_TRUE(host.messages.empty());
  }
}

TEST_F(FileCommandsTest, OpenStartsANewDesignReadsTheFileAndListsIt) {
  TypeSurvey();
  mnuDesignField_Click(program);
  record.DisplayFileName = "saved as";
  ASSERT_EQ(Save("x"), "");
  record.HoleSizeIdeal[4000] = 1;  // in no file: a new design clears it
  host.paths.push_back("x.PFD");
  mnuFileOpen_Click(program);
  EXPECT_EQ(record.OpenedFileName, "x.PFD");
  EXPECT_EQ(record.DisplayFileName, "saved as");  // the file's own name takes the place of the dialog's
  EXPECT_EQ(main.txtInfo[0].text(), "East 40");
  EXPECT_EQ(record.HoleSizeIdeal[4000], 0.0F);
  EXPECT_EQ(Recent()[0], "x.PFD");
  EXPECT_EQ(main.mnuFileList[0].caption, "x.PFD");
}

TEST_F(FileCommandsTest, AFailedOpenIsListedAllTheSame) {
  FillPreferences();
  host.paths.push_back("nothing.PFD");
  mnuFileOpen_Click(program);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, std::string(kOpeningFailed) + " 2");
  EXPECT_EQ(record.DisplayFileName, "nothing.PFD");
  EXPECT_EQ(Recent()[0], "nothing.PFD");
}

// Save

TEST_F(FileCommandsTest, EverySaveAddsTheNameAgain) {
  main.txtInfo[0].Set("Field");
  for (int i = 0; i < 3; ++i) mnuFileSave_Click(program);
  EXPECT_TRUE(host.dialogs.empty());
  EXPECT_EQ(Recent(), (Names{"Field", "Field", "Field", "", "", ""}));
  EXPECT_EQ(BytesOf("RecentTORVALEFileName.Dat"), "Field\r\nField\r\nField\r\n\r\n");
}

TEST_F(FileCommandsTest, AFailedSaveIsListedAllTheSame) {
  record.SaveFileName = "nowhere/x";
  mnuFileSave_Click(program);
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(Recent()[0], "nowhere/x");
}

// The name to save under outlives a change of design.
TEST_F(FileCommandsTest, ASaveAfterAnOpenWritesOverTheFileOfTheFormerSave) {
  TypeSurvey();
  mnuDesignField_Click(program);
  ASSERT_EQ(Save("b"), "");
  host.paths = {"a.PFD", "b.PFD"};
  mnuFileSaveAs_Click(program);
  mnuFileOpen_Click(program);
  main.txtInfo[0].Set("Design of b");
  mnuFileSave_Click(program);
  EXPECT_NE(BytesOf("a.PFD").find("Design of b"), std::string::npos);
  EXPECT_EQ(BytesOf("b.PFD").find("Design of b"), std::string::npos);
}

// Save as

TEST_F(FileCommandsTest, SaveAsHasAFilterForEachType) {
  const char* const filters[] = {"Planned Field Design(*.PFD)|*.PFD",     "Constant Slope(*.CSD)|*.CSD",
                                 "Dual Slope Crown(*.DSD)|*.DSD",         "Computer Selected Holes(*.CSH)|*.CSH",
                                 "Existing Field Condition(*.XFD)|*.XFD", "Limit Computer Hole Selection(*.LHD)|*.LHD"};
  const char* const names[] = {"old.PFD", "old.CSD", "old.DSD", "old.CSH", "old.XFD", "old.LHD"};
  for (int type = 1; type <= 6; ++type) {
    record.DesignType = static_cast<std::int16_t>(type);
    record.OpenedFileName = "old.ABC";
    mnuFileSaveAs_Click(program);
    EXPECT_EQ(host.dialogs.back().title, "Save As");
    EXPECT_EQ(host.dialogs.back().filters, filters[type - 1]);
    EXPECT_EQ(host.dialogs.back().name, names[type - 1]);
    EXPECT_EQ(record.SaveFileName, names[type - 1]);
    EXPECT_EQ(record.OpenedFileName, "old");
    EXPECT_EQ(record.DesignType, type);
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(FileCommandsTest, WithNoOpenedFileSaveAsShowsTheExtensionAlone) {
  record.DesignType = kPlanned;
  record.DisplayFileName = "shown";
  main.txtInfo[0].Set("Field");
  mnuFileSaveAs_Click(program);
  EXPECT_EQ(host.dialogs.back().name, ".PFD");
}

// What the dialog asks about is the file that a name comes to.
TEST_F(FileCommandsTest, SaveAsKnowsTheNameThatWillBeWritten) {
  record.DesignType = kPlanned;
  main.txtInfo[0].Set("East");
  mnuFileSaveAs_Click(program);
  const auto written = host.dialogs.back().written;
  EXPECT_EQ(written("/a/field"), "/a/field.PFD");
  EXPECT_EQ(written("/a/field.old"), "/a/field.PFD");
  EXPECT_EQ(written("/a/.PFD"), "/a/East.PFD");
  EXPECT_EQ(written(".A"), ".A") << "no name at all: saving tells";
}

// The dialog was left with its extension alone.
TEST_F(FileCommandsTest, AnExtensionAloneIsNoName) {
  record.DesignType = kPlanned;
  main.txtInfo[0].Set("East");
  mnuFileSaveAs_Click(program);
  EXPECT_EQ(record.SaveFileName, ".PFD");
  mnuFileSave_Click(program);
  EXPECT_EQ(record.SaveFileName, "East.PFD");
  EXPECT_TRUE(Exists("East.PFD"));
  EXPECT_FALSE(Exists(".PFD"));
}

TEST_F(FileCommandsTest, ASurveyIsSavedBeforeAnyDesignWasRun) {
  TypeSurvey();
  record.SaveFileName = "before";
  host.paths.push_back("survey");
  mnuFileSaveAs_Click(program);
  EXPECT_EQ(host.dialogs.back().filters, "Limit Computer Hole Selection(*.DAT)|*.DAT");
  EXPECT_EQ(host.dialogs.back().name, "before");
  EXPECT_EQ(record.DesignType, kSurveyOnly);
  FileProgram other;
  EXPECT_EQ(other.Open("survey"), "");
  EXPECT_EQ(other.record.DesignType, kSurveyOnly);
  EXPECT_EQ(other.main.Grid1.Text(2, 1), "100.00");
  EXPECT_EQ(other.main.txtInfo[4].text(), "Levee Road, gate 2");
}

TEST_F(FileCommandsTest, WithResultsOnTheScreenAndNoTypeTheFilterIsEmpty) {
  main.Grid2.control.visible = true;
  mnuFileSaveAs_Click(program);
  EXPECT_EQ(host.dialogs.back().filters, "");
  EXPECT_EQ(record.DesignType, kNoDesign);
}

TEST_F(FileCommandsTest, ACancelledSaveAsWritesNothing) {
  record.DesignType = kPlanned;
  main.Frame1.visible = true;
  for (const std::optional<std::string>& path : {std::optional<std::string>(), std::optional<std::string>("")}) {
    host.paths.push_back(path);
    mnuFileSaveAs_Click(program);
    EXPECT_TRUE(main.Frame1.visible);
    EXPECT_EQ(record.DisplayFileName, "");
    EXPECT_EQ(Recent()[0], "");
    EXPECT_FALSE(Exists("Default50.TVL"));
  }
}

TEST_F(FileCommandsTest, SaveAsStoresThePreferencesToo) {
  record.DesignType = kPlanned;
  main.Frame1.visible = true;
  host.paths.push_back("Field.old");
  mnuFileSaveAs_Click(program);
  EXPECT_FALSE(main.Frame1.visible);
  EXPECT_TRUE(Exists("Default50.TVL"));
  EXPECT_EQ(record.DisplayFileName, "Field.old");  // as the dialog gave it
  EXPECT_EQ(record.SaveFileName, "Field.PFD");
  EXPECT_EQ(Recent()[0], "Field.PFD");
  EXPECT_NE(BytesOf("Field.PFD").find("\"Field.old\""), std::string::npos);
}

// The recent list

TEST_F(FileCommandsTest, TheFifthNameLeavesTheMenu) {
  for (const char* name : {"a", "b", "c", "d", "e"}) {
    record.SaveFileName = name;
    mnuFileSave_Click(program);
  }
  EXPECT_EQ(Recent(), (Names{"e", "d", "c", "b", "a", ""}));
  EXPECT_EQ(Captions(), (Names{"e", "d", "c", "b"}));
  EXPECT_EQ(BytesOf("RecentTORVALEFileName.Dat"), "e\r\nd\r\nc\r\nb\r\n");
}

TEST_F(FileCommandsTest, OnlyFilledEntriesAreShown) {
  record.SaveFileName = "a";
  mnuFileSave_Click(program);
  EXPECT_TRUE(main.mnuFileList[0].visible);
  EXPECT_TRUE(main.mnuFileBar3.visible);
  EXPECT_FALSE(main.mnuFileList[1].visible);
}

// An empty entry is not moved, so that a gap keeps what stands below it.
TEST_F(FileCommandsTest, AnEmptyEntryIsNotMoved) {
  const char* const names[] = {"a", "", "c", "d"};
  for (int i = 0; i < 4; ++i) record.RecentFiles[i] = names[i];
  record.SaveFileName = "new";
  mnuFileSave_Click(program);
  EXPECT_EQ(Recent(), (Names{"new", "a", "c", "c", "d", ""}));
}

TEST_F(FileCommandsTest, TheListComesBackAtTheNextStart) {
  host.WriteFile("RecentTORVALEFileName.Dat", "e\r\nd\r\n\r\nb\r\n");
  OpenRecentFiles(program);
  EXPECT_EQ(Captions(), (Names{"e", "d", "", "b"}));
  EXPECT_EQ(Recent(), (Names{"e", "d", "", "b", "", ""}));
  EXPECT_TRUE(main.mnuFileList[1].visible);
  EXPECT_FALSE(main.mnuFileList[2].visible);
  EXPECT_TRUE(main.mnuFileList[3].visible);
  EXPECT_TRUE(main.mnuFileBar3.visible);
  EXPECT_TRUE(main.mnuFileBar3.enabled);
}

TEST_F(FileCommandsTest, AMissingListIsEmptyAndHidden) {
  OpenRecentFiles(program);
  for (const Control& entry : main.mnuFileList) EXPECT_FALSE(entry.visible);
  EXPECT_FALSE(main.mnuFileBar3.visible);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(FileCommandsTest, AShortListLeavesTheOtherEntries) {
  record.RecentFiles[2] = "stays";
  host.WriteFile("RecentTORVALEFileName.Dat", "e\r\nd\r\n");
  OpenRecentFiles(program);
  EXPECT_EQ(Captions(), (Names{"e", "d", "stays", ""}));
}

// The file by itself splits such a name.
TEST_F(FileCommandsTest, ACommaInANameMakesTwoEntriesOfItInTheFile) {
  record.SaveFileName = "East, north";
  mnuFileSave_Click(program);
  host.settings.clear();
  OpenRecentFiles(program);
  EXPECT_EQ(Recent()[0], "East");
  EXPECT_EQ(Recent()[1], " north");
}

// The settings keep the whole names beside it, of letters that the code page lacks, too.
TEST_F(FileCommandsTest, AnyNameSurvivesARestart) {
  for (const char* name : {"East, north", "\u0141\u00F3d\u017A, 2"}) {
    record.SaveFileName = name;
    mnuFileSave_Click(program);
    EXPECT_EQ(main.sbStatusBar.caption, "Saved " + std::string(name) + " in " + host.ProgramFolder());
  }
  EXPECT_EQ(BytesOf("RecentTORVALEFileName.Dat"),
            "?\xF3"
            "d?, 2\r\nEast, north\r\n\r\n\r\n");
  for (int i = 0; i < 4; ++i) record.RecentFiles[i].clear();
  OpenRecentFiles(program);
  EXPECT_EQ(Captions(), (Names{"\u0141\u00F3d\u017A, 2", "East, north", "", ""}));
}

// A list that another program has written since says something else than the settings, and counts.
TEST_F(FileCommandsTest, TheFileCountsWhereTheSettingsSayOtherwise) {
  record.SaveFileName = "East, north";
  mnuFileSave_Click(program);
  host.WriteFile("RecentTORVALEFileName.Dat", "newer\r\n\r\n\r\n\r\n");
  OpenRecentFiles(program);
  EXPECT_EQ(Captions(), (Names{"newer", "", "", ""}));
  EXPECT_FALSE(main.mnuFileList[1].visible);
}

TEST_F(FileCommandsTest, AListThatCannotBeWrittenIsPassedOverInSilence) {
  std::filesystem::create_directory("RecentTORVALEFileName.Dat");
  record.SaveFileName = "a";
  mnuFileSave_Click(program);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(Recent()[0], "a");
  EXPECT_EQ(main.mnuFileList[0].caption, "");
  EXPECT_FALSE(main.mnuFileList[0].visible) << "an empty entry is not shown";
}

TEST_F(FileCommandsTest, ARecentEntryOpensItsFileAndLeavesTheOrder) {
  TypeSurvey();
  mnuDesignField_Click(program);
  ASSERT_EQ(Save("b"), "");
  main.mnuFileList[0].caption = "a.PFD";
  main.mnuFileList[1].caption = "b.PFD";
  record.RecentFiles[0] = "a.PFD";
  record.RecentFiles[1] = "b.PFD";
  main.txtInfo[0].Set("changed");
  record.HoleSizeIdeal[4000] = 1;
  mnuFileList_Click(program, 1);
  EXPECT_EQ(record.OpenedFileName, "b.PFD");
  EXPECT_EQ(main.txtInfo[0].text(), "East 40");
  EXPECT_EQ(record.HoleSizeIdeal[4000], 1.0F);  // no new design ahead of it
  EXPECT_EQ(Recent()[0], "a.PFD");
}

TEST_F(FileCommandsTest, ARecentEntryWhoseFileIsGoneStays) {
  FillPreferences();
  main.mnuFileList[0].caption = "gone.PFD";
  mnuFileList_Click(program, 0);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, std::string(kOpeningFailed) + " 2");
  EXPECT_EQ(main.mnuFileList[0].caption, "gone.PFD");
}

// The results on the screen are those of a sheet that is gone.
TEST_F(FileCommandsTest, ARecentSurveyOrNoFileAtAllLeavesNoResultsOfTheDesignBefore) {
  TypeSurvey();
  main.txtInfo[0].Set("West 12");
  record.DesignType = kSurveyOnly;
  ASSERT_EQ(Save("west"), "");
  main.mnuFileList[0].caption = "west";
  main.mnuFileList[1].caption = "gone.PFD";
  for (const int entry : {0, 1}) {
    SCOPED_TRACE(entry);
    TypeSurvey();
    mnuDesignField_Click(program);
    ASSERT_EQ(main.lblActiveInactive.caption, "Active Design");
    mnuFileList_Click(program, entry);
    EXPECT_EQ(main.txtInfo[0].text(), entry == 0 ? "West 12" : "East 40");
    EXPECT_EQ(record.DesignType, entry == 0 ? kSurveyOnly : kNoDesign);
    EXPECT_EQ(main.lblActiveInactive.caption, "Inactive Design");
    EXPECT_TRUE(main.Grid1.control.visible);
    for (const Control* gone :
         {&main.Grid2.control, &main.frmDisplay, &main.lblEffic, &main.lblAvgFurrowFlow, &main.cmdReCalc,
          &main.cmdDesignToggle, &main.mnuProfile, &main.frameShowLimitedHoles, &main.GridInchesApplied.control}) {
      EXPECT_FALSE(gone->visible) << gone->caption;
    }
    EXPECT_TRUE(main.cmdInterpolate.visible);
    EXPECT_EQ(main.title, "TORVALE   ");
    EXPECT_FALSE(main.mnuDesignField.ticked);
  }
}

TEST_F(FileCommandsTest, PrintingNeedsResultsOnTheScreen) {
  for (const bool shown : {true, false}) {
    main.Grid2.control.visible = shown;
    mnuFile_Click(program);
    for (const Control* entry : {&main.mnuPrintComplete, &main.mnuPrintSummary, &main.mnuPrtHoleSummary}) {
      EXPECT_EQ(entry->enabled, shown);
    }
  }
}

}  // namespace
}  // namespace torvale

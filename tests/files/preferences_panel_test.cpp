#include "files/preferences_panel.h"

#include "base/fault_of.h"
#include "file_program.h"

namespace torvale {
namespace {

struct PreferencesPanelTest : FilesTest {
  TextField& Field(std::size_t i) { return main.txtDefault[i]; }
  const std::string& Text(std::size_t i) { return Field(i).text(); }
  // Fields can have the focus only while their panel is shown.
  void OpenPanel() { mnuPreference_Click(program); }
};

// Opening and closing

TEST_F(PreferencesPanelTest, OpensOverTheResults) {
  for (Control* control : {&main.Grid2.control, &main.cmdReCalc, &main.cmdDesignToggle}) control->visible = true;
  OpenPanel();
  EXPECT_TRUE(main.Frame1.visible);
  for (const Control* control : {&main.Grid2.control, &main.cmdReCalc, &main.cmdDesignToggle}) {
    EXPECT_FALSE(control->visible);
  }
}

TEST_F(PreferencesPanelTest, ResultsComeBackForTypes1To5) {
  for (int type = 0; type <= 8; ++type) {
    record.DesignType = static_cast<std::int16_t>(type);
    main.lblActiveInactive.caption = "Active Design";
    OpenPanel();
    main.Grid1.control.visible = false;
    main.focus.clear();
    btnDefaultExit_Click(program);
    EXPECT_FALSE(main.Frame1.visible);
    for (const Control* control : {&main.Grid2.control, &main.cmdReCalc, &main.cmdDesignToggle}) {
      EXPECT_EQ(control->visible, type >= 1 && type <= 5) << type;
    }
    EXPECT_EQ(main.Grid1.control.visible, type == 0 || type > 5) << type;
    EXPECT_EQ(main.focus, type == 0 ? "txtInfo(0)" : "") << type;
  }
}

// No results stand behind the panel after a new design or a run that failed: the kind of design is left, the sheet
// comes.
TEST_F(PreferencesPanelTest, TheSheetComesBackWhereNoDesignStands) {
  for (int type = 0; type <= 8; ++type) {
    record.DesignType = static_cast<std::int16_t>(type);
    main.lblActiveInactive.caption = "Inactive Design";
    OpenPanel();
    main.Grid1.control.visible = false;
    btnDefaultExit_Click(program);
    for (const Control* control : {&main.Grid2.control, &main.cmdReCalc, &main.cmdDesignToggle}) {
      EXPECT_FALSE(control->visible) << type;
    }
    EXPECT_TRUE(main.Grid1.control.visible) << type;
  }
}

TEST_F(PreferencesPanelTest, BlankFieldsTakeTheirFactoryDefaults) {
  record.HoleSizeIndexLimit = 3;
  btnDefaultExit_Click(program);
  const char* const expected[] = {"100", "5/8", ".65", "140", "1.2", "15", "6.0", "1",
                                  "7",   "R",   "2.0", "R",   "1.2", "2",  ".2",  "*.*"};
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(Text(i), expected[i]) << i;
  EXPECT_EQ(record.HoleSizeIndexLimit, 3.0);
  EXPECT_EQ(record.DischargeCoef, 0.65F);
  EXPECT_EQ(record.HazenWilliamsC, 140.0F);
  EXPECT_EQ(record.StationInterval, 100);
}

TEST_F(PreferencesPanelTest, FilledFieldsStay) {
  for (std::size_t i = 0; i < 16; ++i) Field(i).Set(" ");
  btnDefaultExit_Click(program);
  for (std::size_t i = 0; i < 16; ++i) EXPECT_EQ(Text(i), " ") << i;
}

// 12.5 is halfway, and 12 is even.
TEST_F(PreferencesPanelTest, TheStationIntervalIsRoundedHalfToEven) {
  for (const auto& [text, interval] :
       {std::pair("12.5", 12), std::pair("13.5", 14), std::pair("50 ft", 50), std::pair("x", 0)}) {
    Field(0).Set(text);
    btnDefaultExit_Click(program);
    EXPECT_EQ(record.StationInterval, interval) << text;
  }
}

// Each statement that fails is passed over, and the next one runs.
TEST_F(PreferencesPanelTest, AValueThatDoesNotFitLeavesTheOthersToBeTaken) {
  FillPreferences();
  for (const std::size_t i : {0U, 2U, 3U}) Field(i).on_change = nullptr;
  Field(2).Set("1E39");
  Field(3).Set("120");
  Field(0).Set("40000");
  btnDefaultExit_Click(program);
  EXPECT_EQ(record.DischargeCoef, 0.65F);
  EXPECT_EQ(record.HazenWilliamsC, 120.0F);
  EXPECT_EQ(record.StationInterval, 0);
  EXPECT_TRUE(host.messages.empty());
}

// The defaults file

TEST_F(PreferencesPanelTest, TheFileHasAValueALineTwoEmptyLinesAndTheRecentFiles) {
  FillPreferences();
  const char* const names[] = {"a.PFD", "a.PFD", "b, c.PFD", "d\u00E9.PFD"};
  for (std::size_t i = 0; i < 4; ++i) main.mnuFileList[i].caption = names[i];
  btnDefaultExit_Click(program);
  EXPECT_EQ(BytesOf(Path("Default50.TVL")),
            "100\r\n3/8\r\n0.65\r\n140\r\n1.2\r\n15\r\n10\r\n1\r\n10\r\nE\r\n2.0\r\nC\r\n1\r\n2\r\n.2\r\n*.*\r\n"
            "\r\n\r\n"
            "a.PFD\r\nb, c.PFD\r\nd\xE9.PFD\r\n");
  // The ones that differ from the name ahead of them are kept in the record too.
  EXPECT_EQ(record.RecentFiles[1], "");
  EXPECT_EQ(record.RecentFiles[2], "b, c.PFD");
  EXPECT_EQ(record.RecentFiles[3], "d\u00E9.PFD");
}

TEST_F(PreferencesPanelTest, AnEmptyRecentListLeavesOneEmptyLine) {
  FillPreferences();
  btnDefaultExit_Click(program);
  EXPECT_TRUE(BytesOf(Path("Default50.TVL")).ends_with("*.*\r\n\r\n\r\n\r\n"));
}

TEST_F(PreferencesPanelTest, AFileThatCannotBeWrittenIsPassedOverInSilence) {
  std::filesystem::create_directory(Path("Default50.TVL"));
  Field(0).Set("30");
  OpenPanel();
  btnDefaultExit_Click(program);
  EXPECT_TRUE(host.messages.empty());
  EXPECT_FALSE(main.Frame1.visible);
  EXPECT_EQ(record.StationInterval, 30);
}

// A file written and read shows amounts with two decimals.
TEST_F(PreferencesPanelTest, TheFileComesBackWithTwoDecimals) {
  btnDefaultExit_Click(program);
  ReadDefaultsFile(program);
  EXPECT_EQ(Text(2), "0.65");
  EXPECT_EQ(Text(3), "140.00");
  EXPECT_EQ(Text(15), "*.*");
}

// Keys

TEST_F(PreferencesPanelTest, ArrowsGoFromFieldToField) {
  OpenPanel();
  for (int i = 0; i < 15; ++i) {
    txtDefault_KeyDown(program, i, FieldKeyKind::kDown);
    EXPECT_EQ(main.focus, "txtDefault(" + std::to_string(i + 1) + ")");
  }
  main.focus = "stays";
  txtDefault_KeyDown(program, 15, FieldKeyKind::kDown);
  EXPECT_EQ(main.focus, "stays");
  for (int i = 15; i > 0; --i) {
    txtDefault_KeyDown(program, i, FieldKeyKind::kUp);
    EXPECT_EQ(main.focus, "txtDefault(" + std::to_string(i - 1) + ")");
  }
  txtDefault_KeyDown(program, 0, FieldKeyKind::kUp);
  EXPECT_EQ(main.focus, "txtDefault(12)");  // not the last
}

TEST_F(PreferencesPanelTest, EnterGoesOnAndFromTheLastFieldToTheFirst) {
  OpenPanel();
  for (int i = 0; i < 16; ++i) {
    EXPECT_TRUE(txtDefault_KeyPress(program, i, "\r"));
    EXPECT_EQ(main.focus, "txtDefault(" + std::to_string((i + 1) % 16) + ")");
  }
}

TEST_F(PreferencesPanelTest, OtherKeysAreTyped) {
  for (int i = 0; i < 16; ++i) {
    if (i == 1) continue;
    EXPECT_FALSE(txtDefault_KeyPress(program, i, "+")) << i;
  }
  EXPECT_EQ(record.HoleSizeIndexLimit, std::nullopt);
}

// The counter begins at 0 whatever the field shows.
TEST_F(PreferencesPanelTest, PlusStepsUpThroughTheHoleSizes) {
  Field(1).Set("3/8");
  for (int i = 1; i <= 50; ++i) {
    EXPECT_TRUE(txtDefault_KeyPress(program, 1, "+"));
    EXPECT_EQ(Text(1), record.HoleSizeName[i]);
    EXPECT_EQ(record.HoleSizeIndexLimit, i);
  }
  txtDefault_KeyPress(program, 1, "+");
  EXPECT_EQ(Text(1), "");
  EXPECT_EQ(record.HoleSizeIndexLimit, 0.0);
}

TEST_F(PreferencesPanelTest, MinusStepsDownFromTheEmptyEntryToTheLast) {
  txtDefault_KeyPress(program, 1, "-");
  EXPECT_EQ(Text(1), "3");
  txtDefault_KeyPress(program, 1, "-");
  EXPECT_EQ(Text(1), "2-15/16");
  for (int i = 0; i < 49; ++i) txtDefault_KeyPress(program, 1, "-");
  EXPECT_EQ(Text(1), "");
}

TEST_F(PreferencesPanelTest, NoOtherKeyIsTypedIntoTheHoleSize) {
  record.HoleSizeIndexLimit = 12;
  for (const char* key : {"a", "7", " ", "\b"}) {
    Field(1).Set("typed");
    EXPECT_TRUE(txtDefault_KeyPress(program, 1, key));
    EXPECT_EQ(Text(1), "5/8");
  }
}

TEST_F(PreferencesPanelTest, EnterInTheFirstFieldRewritesTheHoleSize) {
  Field(1).Set("3/8");
  txtDefault_KeyPress(program, 0, "\r");
  EXPECT_EQ(Text(1), "");  // the counter was never set
  Field(1).Set("3/8");
  txtDefault_KeyPress(program, 1, "\r");
  EXPECT_EQ(Text(1), "3/8");
}

// A design can bring any number with it. What lies past the table is a fault; the next "+" begins anew.
TEST_F(PreferencesPanelTest, ACounterPastTheTable) {
  record.HoleSizeIndexLimit = 70;
  txtDefault_KeyPress(program, 1, "+");
  EXPECT_EQ(record.HoleSizeIndexLimit, 0.0);
  record.HoleSizeIndexLimit = 70;
  EXPECT_EQ(FaultOf([&] { txtDefault_KeyPress(program, 1, "-"); }), Fault::kSubscript);
  record.HoleSizeIndexLimit = 1E300;
  EXPECT_EQ(FaultOf([&] { txtDefault_KeyPress(program, 1, "-"); }), Fault::kOverflow);
}

// Leaving a field

TEST_F(PreferencesPanelTest, WrongLettersAreRepairedWithABeep) {
  FillPreferences();
  struct Case {
    int field;
    const char* typed;
    const char* left;
    int beeps;
  };
  for (const Case& c : {Case{9, "E", "E", 0}, Case{9, "R", "R", 0}, Case{9, "C", "E", 1}, Case{9, "", "E", 1},
                        Case{9, "r", "R", 0}, Case{11, "C", "C", 0}, Case{11, "R", "R", 0}, Case{11, "E", "R", 1},
                        Case{11, "RR", "R", 1}, Case{10, "x", "x", 0}}) {
    host.beeps = 0;
    const auto field = static_cast<std::size_t>(c.field);
    Field(field).Set(c.typed);
    txtDefault_LostFocus(program, c.field);
    EXPECT_EQ(Text(field), c.left) << c.field << c.typed;
    EXPECT_EQ(host.beeps, c.beeps) << c.field << c.typed;
  }
}

TEST_F(PreferencesPanelTest, TheHighestHeadIsRepairedWhicheverFieldIsLeft) {
  FillPreferences();
  for (int i = 0; i < 16; ++i) {
    for (const char* low : {"0.49", "", "x", "-2"}) {
      host.beeps = 0;
      Field(13).Set(low);
      txtDefault_LostFocus(program, i);
      EXPECT_EQ(Text(13), "0.5") << i << low;
      EXPECT_EQ(host.beeps, 1) << i << low;
    }
    host.beeps = 0;
    for (const char* enough : {".5", "0.50", "2 ft"}) {
      Field(13).Set(enough);
      txtDefault_LostFocus(program, i);
      EXPECT_EQ(Text(13), enough);
      EXPECT_EQ(host.beeps, 0);
    }
  }
}

TEST_F(PreferencesPanelTest, AFieldThatGainsTheFocusIsSelected) {
  OpenPanel();
  Field(4).Set("1.2");
  MoveFocus(program, "txtDefault(4)");
  EXPECT_EQ(Field(4).SelectedText(), "1.2");
}

}  // namespace
}  // namespace torvale

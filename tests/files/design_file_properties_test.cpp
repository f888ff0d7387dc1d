// What holds of every design that is written and read.
#include <cmath>
#include <cstring>
#include <random>

#include "base/numbers.h"
#include "base/version.h"
#include "file_program.h"
#include "files/design_format.h"
#include "files/fields.h"
#include "search/hole_selection_panel.h"

namespace torvale {
namespace {

class RandomDesign {
 public:
  explicit RandomDesign(unsigned seed) : random_(seed) {}

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  // Any finite float, from the bits; now and then a plain one.
  float Float() {
    if (Below(3) == 0) return static_cast<float>(Below(100000)) / 100;
    float value = 0;
    do {
      const auto bits = static_cast<std::uint32_t>(random_());
      std::memcpy(&value, &bits, sizeof value);
    } while (!std::isfinite(value) || FormChanges(value));
    return value;
  }
  double Double() { return static_cast<double>(Float()) / 7; }
  std::int16_t Short() { return static_cast<std::int16_t>(Below(65536) - 32768); }
  FreeValue Free() { return Below(3) == 0 ? FreeValue() : FreeValue(Double()); }
  // Any text but for the quote, which nothing escapes, of characters that the code page has.
  std::string Text() {
    constexpr std::string_view kCharacters[] = {"a", "Z", "0",      " ",      ",",      "\r\n", "\n", "\r",
                                                "'", "/", "\u00E9", "\u20AC", "\u201D", "-",    ".",  "\t"};
    std::string text;
    for (int i = Below(12); i > 0; --i) text += kCharacters[Below(std::size(kCharacters))];
    return text;
  }

  // Of all floats, only those few whose 7 digits come to a power of ten that reads back as a float below it take
  // another form the second time (see the test of them).
  static bool FormChanges(float value) {
    const float size = std::fabs(value);
    return (size > 0.99e28F && size < 1.01e28F) || (size > 0.99e-38F && size < 1.01e-38F);
  }

  void Fill(FileProgram& p, int type) {
    DesignRecord& r = p.record;
    r.FileVersion = ProgramVersion();
    r.DesignType = static_cast<std::int16_t>(type);
    r.SurveyRows = static_cast<std::int16_t>(Below(20));
    r.HoleRows = static_cast<std::int16_t>(Below(30));
    for (TextField& field : p.main.txtInfo) field.Set(Text());
    for (std::size_t i = 0; i < 5; ++i) p.main.txtDefault[i].Set(std::to_string(i));
    for (int i = 1; i <= r.SurveyRows; ++i) {
      for (int c = 0; c < 9; ++c) p.main.Grid1.Set(i, c, Text());
    }
    FillSummary(r);
    for (int i = 1; i <= r.HoleRows; ++i) {
      for (int c = 0; c < 11; ++c) p.main.Grid2.Set(i, c, Text());
      FillRow(r, i);
    }
    for (int i = Below(51); i > 0; --i) p.main.listHolesSelected.Add("1/4");
    for (int i = 0; i < 50; ++i) {
      r.SelectedHoleName[i] = Text();
      r.SelectedHoleValue[i] = Float();
    }
  }

 private:
  void FillSummary(DesignRecord& r) {
    for (float* place :
         {&r.MaxFurrowFlow, &r.MinFurrowFlow, &r.Uniformity, &r.CrownSlope, &r.MaxHead, &r.MinHead, &r.HazenWilliamsC,
          &r.DischargeCoef, &r.AverageFurrowFlow, &r.AccumGPM, &r.TotalFurrowLength, &r.TotalAcres, &r.HighestFill}) {
      *place = Float();
    }
    for (std::int16_t* place : {&r.WateredFurrows, &r.MaxHeadStation, &r.MinHeadStation}) {
      *place = Short();
    }
    for (std::string* place :
         {&r.DisplayFileName, &r.PipeKind, &r.HoleSumStations, &r.HoleSumLengths, &r.HoleSumCounts}) {
      *place = Text();
    }
    r.HoleSizeIndexLimit = Free();
    r.DualBreakStation = Free();
  }
  void FillRow(DesignRecord& r, int i) {
    for (RowArray<float>* rows :
         {&r.DesignElev, &r.CrownElev, &r.Station, &r.NormFurrowFlow, &r.ElevByFoot, &r.ReservedRowValue,
          &r.HoleSpacing, &r.FurrowFlow, &r.SurveyHoleDia, &r.HoleDia, &r.HoleArea, &r.PipeDia, &r.RequiredFlow,
          &r.PipeArea, &r.FurrowNumber, &r.LimitedHoleDia, &r.PlantedWidth}) {
      (*rows)[i] = Float();
    }
    for (RowArray<std::int16_t>* rows : {&r.HolesPerFurrow, &r.FurrowLength, &r.NormFurrowLength}) {
      (*rows)[i] = Short();
    }
    r.Head[i] = Double();
    r.MilText[i] = Text();
    r.ReservedRowValue2[i] = Text();
  }

  std::mt19937 random_;
};

TEST(DesignFileProperties, WhatIsWrittenAndReadIsWrittenAgainToTheSameBytes) {
  constexpr unsigned kDesigns = 300;
  FileProgram copy;
  copy.FillPreferences();
  for (unsigned seed = 0; seed < kDesigns; ++seed) {
    FileProgram original;
    RandomDesign(seed).Fill(original, static_cast<int>(seed % 8));
    for (std::size_t i = 0; i < 5; ++i) copy.main.txtDefault[i].Set(std::to_string(i));
    const std::string written = WriteDesign(original.program);
    const DesignExtras extras = ReadDesign(copy.program, written, [](const DesignExtras&) {});
    copy.main.listHolesSelected.Clear();
    for (int i = 0; i < extras.sizes; ++i) copy.main.listHolesSelected.Add("1/4");
    ASSERT_EQ(WriteDesign(copy.program), written) << seed;
  }
}

// A float has 24 bits, and 7 digits are at places more than those tell apart and at places fewer. Either the digits are
// the finer ones, and read back to the very float, or the floats are, and the float that is read lies close enough to
// take the same digits again. That fails only where the digits come to a power of ten that is no float itself: below
// it the digits are ten times as fine. Of the powers in reach it happens at 1E+28 and 1E-38.
TEST(DesignFileProperties, SevenDigitsAreStableButForFourFloatsAtTwoPowersOfTen) {
  const auto again = [](const std::string& text) { return GeneralText(FieldReader(text).Number32()); };
  std::string changed;
  for (int power = -44; power <= 38; ++power) {
    float value = FieldReader("1E" + std::to_string(power)).Number32();
    for (int i = 0; i < 100; ++i) value = std::nextafterf(value, 0);
    for (int i = 0; i < 200; ++i, value = std::nextafterf(value, INFINITY)) {
      const std::string text = GeneralText(value);
      if (again(text) != text) changed += text + " ";
      EXPECT_EQ(again(again(text)), again(text));
      if (again(text) == "0") continue;
      EXPECT_EQ(again("-" + text), "-" + again(text));
    }
  }
  EXPECT_EQ(changed, "1E-38 1E-38 1E-38 1E-38 1E+28 1E+28 1E+28 1E+28 ");
}

TEST(DesignFileProperties, FifteenDigitsAreStable) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 20000; ++i) {
    const std::uint64_t bits = random();
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isfinite(value) || std::fabs(value) > 1e308) continue;
    const std::string text = GeneralText(value);
    EXPECT_EQ(GeneralText(FieldReader(text).Number64()), text);
  }
}

// With two sizes to choose from.
void SelectLimitedHoles(Program& program) {
  mnuManHoleSelection_Click(program);
  for (const char* size : {"3/8", "7/16"}) program.main.listHolesSelected.Add(size);
  cmdExitHoleSelect_Click(program);
}

// Every kind of design that the program makes comes back as it was, and opening leaves its file alone.
TEST(DesignFileProperties, ADesignOfEachTypeOpensAndIsSavedToTheSameBytes) {
  using Command = void (*)(Program&);
  const Command commands[] = {mnuDesignField_Click,           mnuDesignConstSlope_Click, mnuDesignDualSlope_Click,
                              mnuComputerHoleSelection_Click, mnuExistingDesign_Click,   SelectLimitedHoles};
  for (int type = 1; type <= 6; ++type) {
    FileProgram first;
    first.TypeSurvey();
    commands[type - 1](first.program);
    ASSERT_EQ(first.record.DesignType, type);
    ASSERT_TRUE(first.host.messages.empty()) << type;
    ASSERT_EQ(first.record.HoleRows, 11) << type;
    ASSERT_EQ(first.Save(first.Path("a")), "");
    const std::string name = first.record.SaveFileName;
    const std::string bytes = BytesOf(name);

    FileProgram second;
    second.FillPreferences();
    EXPECT_EQ(second.Open(name), "") << type;
    EXPECT_EQ(BytesOf(name), bytes) << "opening changed the file";
    EXPECT_EQ(second.Save(second.Path("a")), "");
    EXPECT_TRUE(BytesOf(second.record.SaveFileName) == bytes) << type << '\n'
                                                              << BytesOf(second.record.SaveFileName) << bytes;
  }
}

// Every design that was saved opens, also one without a furrow, a flow or a length.
TEST(DesignFileProperties, ADesignOfNothingOpens) {
  for (int type = 0; type <= 7; ++type) {
    for (const char* gpm : {"", "6.4"}) {
      FileProgram first;
      first.FillPreferences();
      first.record.DesignType = static_cast<std::int16_t>(type);
      first.main.txtInfo[2].Set(gpm);
      first.record.HoleRows = static_cast<std::int16_t>(type % 3);
      ASSERT_EQ(first.Save(first.Path("a")), "");
      FileProgram second;
      second.FillPreferences();
      // A selection of holes is made anew and says what its survey lacks.
      const std::string message = second.Open(first.record.SaveFileName);
      EXPECT_FALSE(message.starts_with(kOpeningFailed)) << type << message;
      EXPECT_TRUE(message.empty() || type == kComputerHoles) << type << message;
    }
  }
}

}  // namespace
}  // namespace torvale

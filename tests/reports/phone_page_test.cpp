#include "reports/phone_page.h"

#include <gtest/gtest.h>

#include "display/small_line.h"
#include "reports/phone_picture.h"

namespace torvale {
namespace {

struct PhonePageTest : ::testing::Test, SmallLine {
  PhonePageTest() {
    main.txtInfo[0].Set("Home Place");
    main.txtInfo[4].Set("South of the lane");
    for (const float station : {0.0F, 10.0F, 20.0F}) AddHole(station, kQuarterInch, 100);
    AddHole(30, kEighthInch, 100);
    for (int i = 1; i <= 4; ++i) record.HoleSpacing[i] = 10;
  }
};

TEST_F(PhonePageTest, TheCrewReadsSizesStationsAndCounts) {
  const CrewSheet sheet = CrewSheetOf(program);
  ASSERT_EQ(sheet.runs.size(), 2U);
  EXPECT_EQ(sheet.runs[0].size, "1/4 in");
  EXPECT_EQ(sheet.runs[0].where, "0 to 20 ft");
  EXPECT_EQ(sheet.runs[1].where, "at 30 ft");
  EXPECT_EQ(sheet.runs[0].count, "3 holes");
  EXPECT_EQ(sheet.runs[1].count, "1 hole");
  EXPECT_EQ(sheet.totals, (std::vector<std::string>{"1/4 in: 3 holes", "1/8 in: 1 hole"}));
  EXPECT_EQ(sheet.spacings, std::vector<std::string>{"0 - 30 ft: holes 10 ft apart"});
  EXPECT_EQ(sheet.design, "Planned Design using Layflat Pipe");
}

// Furrows of two holes each, and a size that comes back further down the line.
TEST_F(PhonePageTest, HolesAreAddedUpBySize) {
  AddHole(40, kQuarterInch, 100);
  for (int i = 1; i <= 5; ++i) record.HolesPerFurrow[i] = 2;
  const CrewSheet sheet = CrewSheetOf(program);
  ASSERT_EQ(sheet.runs.size(), 3U);
  EXPECT_EQ(sheet.runs[0].count, "3 furrows, 6 holes");
  EXPECT_EQ(sheet.totals[0], "1/4 in: 4 furrows, 8 holes");
}

// .6 square inches over gates 1.2 inches wide open .5.
TEST_F(PhonePageTest, GatesTellHowFarTheyOpen) {
  record.PipeKind = "R";
  for (int i = 1; i <= 4; ++i) record.HoleArea[i] = 0.6F / 144;
  EXPECT_EQ(CrewSheetOf(program).runs[0].size, "open 0.500 in");
  EXPECT_EQ(CrewSheetOf(program).runs[0].count, "3 gates");
}

int CountOf(const std::string& text, std::string_view part) {
  int count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

TEST_F(PhonePageTest, ThePageHasABoxForEachRunAndNeedsNothingElse) {
  const std::string page = PhonePage(CrewSheetOf(program));
  EXPECT_EQ(CountOf(page, "<input type=\"checkbox\""), 2);
  EXPECT_NE(page.find("<span class=\"size\">1/4 in</span><span class=\"where\">0 to 20 ft</span>"), std::string::npos);
  EXPECT_NE(page.find("<h1>Home Place</h1>"), std::string::npos);
  EXPECT_NE(page.find("default-src 'none'"), std::string::npos);
  for (const char* outside : {"http:", "https:", "//", "url(", "@import", "<link", "<img", "<iframe", " src="}) {
    EXPECT_EQ(page.find(outside), std::string::npos) << outside;
  }
}

TEST_F(PhonePageTest, WhatIsTypedIsNeverMarkup) {
  main.txtInfo[0].Set("</title><script>alert(1)</script>");
  main.txtInfo[1].Set("\"x' onclick='y()");
  main.txtInfo[4].Set("Smith & Sons <b>\x01\t");
  const std::string page = PhonePage(CrewSheetOf(program));
  EXPECT_EQ(CountOf(page, "<script>"), 1);  // the page's own
  EXPECT_EQ(CountOf(page, "<b>"), 0);
  EXPECT_EQ(CountOf(page, "</title>"), 1);
  EXPECT_NE(page.find("&lt;/title&gt;&lt;script&gt;alert(1)&lt;/script&gt;"), std::string::npos);
  EXPECT_NE(page.find("Smith &amp; Sons &lt;b&gt;"), std::string::npos);
  EXPECT_NE(page.find("&quot;x&#39; onclick=&#39;y()"), std::string::npos);
  EXPECT_EQ(page.find('\x01'), std::string::npos);
}

TEST_F(PhonePageTest, AnUnnamedDesignAndOneWithoutHolesHaveAPageToo) {
  main.txtInfo[0].Set("");
  EXPECT_NE(PhonePage(CrewSheetOf(program)).find("<h1>Hole Summary</h1>"), std::string::npos);
  for (int i = 1; i <= 4; ++i) record.FurrowFlow[i] = 0;
  EXPECT_EQ(CountOf(PhonePage(CrewSheetOf(program)), "<li>"), 0);
}

std::vector<std::string> TextsOf(const Document& document) {
  std::vector<std::string> texts;
  for (const PrintOperation& operation : document.operations) {
    if (const auto* text = std::get_if<PrintedText>(&operation)) texts.push_back(text->text);
  }
  return texts;
}

TEST_F(PhonePageTest, ThePictureSaysTheSameOnOnePage) {
  const Document picture = PhonePicture(CrewSheetOf(program));
  const std::vector<std::string> texts = TextsOf(picture);
  for (const char* text : {"Home Place", "South of the lane", "1/4 in", "0 to 20 ft", "3 holes", "1/8 in"}) {
    EXPECT_NE(std::find(texts.begin(), texts.end(), text), texts.end()) << text;
  }
  EXPECT_TRUE(std::none_of(picture.operations.begin(), picture.operations.end(),
                           [](const auto& operation) { return std::holds_alternative<NewPage>(operation); }));
}

TEST_F(PhonePageTest, AVeryLongPictureSaysWhatItLeavesOut) {
  CrewSheet sheet = CrewSheetOf(program);
  sheet.runs.resize(203, sheet.runs.front());
  const std::vector<std::string> texts = TextsOf(PhonePicture(sheet));
  EXPECT_NE(std::find(texts.begin(), texts.end(), "and 3 more: see the hole summary on paper"), texts.end());
}

}  // namespace
}  // namespace torvale

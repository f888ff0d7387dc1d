#include "shell/help_pages.h"

#include <gtest/gtest.h>

#include "shell/help_search.h"

namespace torvale {
namespace {

constexpr std::string_view kSmallGuide =
    "<html><body>\n"
    "<section id=\"start\" data-group=\"First &amp; last\"><h1>How to <b>start</b></h1>\n<p>Lay the pipe along the\n"
    "crown.</p><p id=\"holes\">Holes of 5/8 inch &lt; 1 inch.</p></section>\n"
    "<section id=\"pipe\" data-group=\"Things\"><h1>The pipe</h1><p>Wat<b>er</b> for the furrows</p>"
    "<table><tr><td>Mil</td><td>7</td></tr></table></section></body></html>";

std::string FaultOf(std::string_view file) {
  try {
    ReadHelpPages(file);
  } catch (const HelpFault& fault) {
    return fault.what();
  }
  return "none";
}

TEST(HelpPagesTest, ReadsPagesInTheirOrder) {
  const std::vector<HelpPage> pages = ReadHelpPages(kSmallGuide);
  ASSERT_EQ(pages.size(), 2U);
  EXPECT_EQ(pages[0].id, "start");
  EXPECT_EQ(pages[0].title, "How to start");
  EXPECT_EQ(pages[0].group, "First & last");
  EXPECT_EQ(pages[0].text, "How to start Lay the pipe along the crown. Holes of 5/8 inch < 1 inch.");
  EXPECT_TRUE(pages[0].html.starts_with("<h1>How to"));
  EXPECT_TRUE(pages[0].html.ends_with("1 inch.</p>"));
  // A tag within a word does not part it; cells of a table are words of their own.
  EXPECT_EQ(pages[1].text, "The pipe Water for the furrows Mil 7");
}

TEST(HelpPagesTest, RefusesWhatIsNoHelpFile) {
  EXPECT_EQ(FaultOf(""), "it holds no pages");
  EXPECT_EQ(FaultOf("\x89PNG\r\n"), "it holds no pages");
  EXPECT_EQ(FaultOf("<section><h1>A</h1></section>"), "a page has no id");
  EXPECT_EQ(FaultOf("<section id=\"\"><h1>A</h1></section>"), "a page has no id");
  EXPECT_EQ(FaultOf("<section id=\"a\"><p>A</p></section>"), "the page a has no title");
  EXPECT_EQ(FaultOf("<section id=\"a\"><h1>A</h1>"), "a page does not end");
  EXPECT_EQ(FaultOf("<section id=\"a\""), "a page does not end");
  EXPECT_EQ(FaultOf("<section id=\"a\"><h1>A</h1></section><section id=\"a\"><h1>B</h1></section>"),
            "the page a stands twice");
}

TEST(HelpPagesTest, FindsThePageOfAnAnchor) {
  const std::vector<HelpPage> pages = ReadHelpPages(kSmallGuide);
  EXPECT_EQ(PageAt(pages, "pipe"), &pages[1]);
  EXPECT_EQ(PageAt(pages, "holes"), &pages[0]);
  EXPECT_EQ(PageAt(pages, "hole"), nullptr);
  EXPECT_EQ(PageAt(pages, ""), nullptr);
}

TEST(HelpPagesTest, SearchWantsAllWordsInAnyCase) {
  const std::vector<HelpPage> pages = ReadHelpPages(kSmallGuide);
  const std::vector<HelpHit> hits = SearchHelp(pages, " CROWN  holes ");
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_EQ(hits[0].page, &pages[0]);
  EXPECT_NE(hits[0].excerpt.find("crown"), std::string::npos) << hits[0].excerpt;
  EXPECT_TRUE(SearchHelp(pages, "crown furrows").empty());
  EXPECT_TRUE(SearchHelp(pages, "  ").empty());
}

TEST(HelpPagesTest, TitlesComeFirst) {
  const std::vector<HelpPage> pages = ReadHelpPages(kSmallGuide);
  const std::vector<HelpHit> hits = SearchHelp(pages, "pipe");
  ASSERT_EQ(hits.size(), 2U);
  EXPECT_EQ(hits[0].page, &pages[1]);
  EXPECT_EQ(hits[1].page, &pages[0]);
}

TEST(HelpPagesTest, AnExcerptBeginsAndEndsWithWholeWords) {
  std::string words;
  for (int i = 0; i < 60; ++i) words += "word" + std::to_string(i) + " ";
  const std::vector<HelpPage> pages =
      ReadHelpPages("<section id=\"a\"><h1>A</h1><p>" + words + "furrow " + words + "</p></section>");
  const std::vector<HelpHit> hits = SearchHelp(pages, "furrow");
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_TRUE(hits[0].excerpt.starts_with("... word5")) << hits[0].excerpt;
  EXPECT_NE(hits[0].excerpt.find("furrow"), std::string::npos);
  EXPECT_TRUE(hits[0].excerpt.ends_with(" ...")) << hits[0].excerpt;
  EXPECT_LT(hits[0].excerpt.size(), 120U);
}

constexpr std::string_view kMessages =
    "<section id=\"start\" data-group=\"a\"><h1>Start</h1><h3>No data</h3></section>"
    "<section id=\"messages\" data-group=\"a\"><h1>Messages</h1><h3>No data</h3><p>x</p><h3 id=\"own\">Own</h3>"
    "<h3><i>reason</i> print Error</h3><h3>No printer. print\nError</h3>"
    "<h3>Station <i>n</i> Head <i>n</i>\nGPM</h3></section>";

TEST(PlaceOfMessageTest, AHeadingWithTheSameWordsIsThePlace) {
  const std::vector<HelpPage> pages = ReadHelpPages(kMessages);
  EXPECT_EQ(PlaceOfMessage(pages, "No data"), "messages-1");
  EXPECT_EQ(PlaceOfMessage(pages, "Own"), "own");
  EXPECT_EQ(PageAt(pages, "messages-1"), &pages[1]);
  EXPECT_EQ(PageAt(pages, "start-1"), &pages[0]);
}

// Blanks and line ends count alike; of two headings that fit the closer one is meant.
TEST(PlaceOfMessageTest, WhatTheProgramPutsInStandsInItalics) {
  const std::vector<HelpPage> pages = ReadHelpPages(kMessages);
  EXPECT_EQ(PlaceOfMessage(pages, "Station 100 Head 2.5\rGPM"), "messages-4");
  EXPECT_EQ(PlaceOfMessage(pages, "Divided by zero. print Error"), "messages-2");
  EXPECT_EQ(PlaceOfMessage(pages, "No printer. print Error"), "messages-3");
}

TEST(PlaceOfMessageTest, OtherTextsLeadToThePage) {
  const std::vector<HelpPage> pages = ReadHelpPages(kMessages);
  EXPECT_EQ(PlaceOfMessage(pages, "No data at all"), "messages");
  EXPECT_EQ(PlaceOfMessage(pages, "Station Head GPM x"), "messages");
  EXPECT_EQ(PlaceOfMessage({}, "No data"), "messages");
}

}  // namespace
}  // namespace torvale

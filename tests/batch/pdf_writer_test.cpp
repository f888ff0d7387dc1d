#include "batch/pdf_writer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "batch/temporary_folder.h"
#include "reports/paper.h"

namespace torvale {
namespace {

// What a tool prints of a file.
std::string Printed(const std::string& command) {
  std::string text;
  std::FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return text;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) text += static_cast<char>(c);
  pclose(pipe);
  return text;
}

class PdfTest : public ::testing::Test {
 protected:
  std::string TextOf(const Document& document) {
    const std::optional<std::string> bytes = PdfOf(document);
    if (!bytes) return "no file";
    folder.Write("a.pdf", *bytes);
    return Printed("pdftotext -layout '" + Utf8Of(folder / "a.pdf") + "' -");
  }
  // Of the first word: the left and right edge and the top of its box, in points from the sheet's top left.
  struct Box {
    double left = 0, top = 0, right = 0;
  };
  Box FirstWord(const Document& document) {
    folder.Write("a.pdf", PdfOf(document).value());
    const std::string boxes = Printed("pdftotext -bbox '" + Utf8Of(folder / "a.pdf") + "' -");
    const auto number = [&](const std::string& name) {
      const std::size_t at = boxes.find(name + "=\"");
      return at == std::string::npos ? -1 : std::stod(boxes.substr(at + name.size() + 2));
    };
    return {number("xMin"), number("yMin"), number("xMax")};
  }
  TestFolder folder;
};

TEST_F(PdfTest, HoldsTheTextsOfEachPage) {
  Document document{"Title", {}};
  document.operations = {PrintedText{1, 1, 10, "First \xC3\xBC \xE2\x82\xAC \xC4\x85", false, 0}, NewPage{},
                         PrintedText{1, 1, 10, "Second", false, 0}};
  const std::string text = TextOf(document);
  // The last letter is none of Windows-1252.
  EXPECT_NE(text.find("First \xC3\xBC \xE2\x82\xAC ?"), std::string::npos) << text;
  EXPECT_NE(text.find("\fSecond"), std::string::npos) << text;
  EXPECT_EQ(PdfOf(document), PdfOf(document));
  EXPECT_NE(Printed("pdfinfo '" + Utf8Of(folder / "a.pdf") + "'").find("612 x 792 pts (letter)"), std::string::npos);
}

// The page lies a quarter of an inch from the sheet's edge: x = 1 is 1.25 inches, 90 points. A digit of Helvetica is
// 0.556 of the font size wide: ten of them at 10 points come to 55.6 points.
TEST_F(PdfTest, PutsTextsWhereTheyBelong) {
  const Box left = FirstWord({"", {PrintedText{1, 1, 10, "0123456789", false, 0}}});
  EXPECT_NEAR(left.left, 90, 0.1);
  EXPECT_NEAR(left.right, 145.6, 0.1);
  const Box centred = FirstWord({"", {PrintedText{4, 1, 10, "0123456789", true, 0}}});
  EXPECT_NEAR((centred.left + centred.right) / 2, 4.25 * 72, 0.1);
}

// Half an inch is 36 points for 55.6 points of text: it is drawn at 0.65 of its width, and ends where its room ends.
TEST_F(PdfTest, DrawsATextNarrowerWhereItsRoomEnds) {
  const Box box = FirstWord({"", {PrintedText{1, 1, 10, "0123456789", false, 0.5}}});
  EXPECT_NEAR(box.right - box.left, 36, 0.2);
}

// Below 0.6 of its width a text loses its middle.
TEST_F(PdfTest, ShortensATextThatIsFarTooLong) {
  const std::string text = TextOf({"", {PrintedText{1, 1, 10, "abcdefghijklmnopqrstuvwxyz", false, 0.5}}});
  EXPECT_NE(text.find("abc"), std::string::npos) << text;
  EXPECT_NE(text.find("xyz"), std::string::npos);
  EXPECT_NE(text.find("\xE2\x80\xA6"), std::string::npos);
  EXPECT_EQ(text.find("mn"), std::string::npos);
}

// A line one inch down the middle of the sheet, a hundredth of an inch wide, is the only ink.
TEST_F(PdfTest, DrawsLinesAndBoxes) {
  folder.Write("a.pdf", PdfOf({"", {PrintedLine{4, 2, 4, 3, 3}, PrintedBox{1, 4, 2, 5, 3}}}).value());
  const std::string start = Utf8Of(folder / "a");
  Printed("pdftoppm -r 100 -gray -singlefile '" + start + ".pdf' '" + start + "'");
  const std::string picture = ReadTextFile(start + ".pgm");  // P5, 850 by 1100, 255
  ASSERT_GT(picture.size(), 850U * 1100U);
  const std::string_view dots = std::string_view(picture).substr(picture.size() - 850U * 1100U);
  const auto dark = [&](int x, int y) {
    return static_cast<unsigned char>(dots[static_cast<std::size_t>(y) * 850 + static_cast<std::size_t>(x)]) < 200;
  };
  const auto inked = [&](int x, int y) { return dark(x - 1, y) || dark(x, y) || dark(x + 1, y); };
  EXPECT_TRUE(inked(425, 250));
  EXPECT_FALSE(inked(425, 320));
  EXPECT_FALSE(inked(415, 250));
  for (const int x : {125, 225}) EXPECT_TRUE(inked(x, 450)) << x;
  EXPECT_FALSE(inked(175, 450));
}

TEST(Paper, PartsADocumentIntoItsPages) {
  const Document document{"", {NewPage{}, PrintedLine{}, NewPage{}}};
  const std::vector<Operations> pages = PagesOf(document);
  ASSERT_EQ(pages.size(), 3U);
  EXPECT_EQ(pages[0].size(), 0U);
  EXPECT_EQ(pages[1].size(), 1U);
  EXPECT_EQ(pages[2].size(), 0U);
}

}  // namespace
}  // namespace torvale

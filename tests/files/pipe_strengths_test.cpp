#include "files/pipe_strengths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/fake_host.h"
#include "support/file_bytes.h"
#include "support/source_folder.h"

namespace torvale {
namespace {

struct PipeStrengthsTest : ::testing::Test {
  void Read(std::string_view text) {
    host.WriteFile("SafeHeads.txt", text);
    ReadPipeStrengths(program);
  }
  std::string Told() const { return host.messages.empty() ? "" : host.messages.front().body; }

  FakeHost host;
  Program program{host};
};

TEST_F(PipeStrengthsTest, ALineIsAPipe) {
  Read("# inches, mils, feet\r\n12,10,2.8\r\n\r\n \"15\" , \"10\",\" 2.2\"\r\n");
  EXPECT_EQ(program.pipe_strengths, (PipeStrengths{{12, 10, 2.8}, {15, 10, 2.2}}));
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PipeStrengthsTest, ReadAgainTheTableIsTheNewOne) {
  Read("12,10,2.8\n15,10,2.2");
  Read("12,10,3");
  EXPECT_EQ(program.pipe_strengths, (PipeStrengths{{12, 10, 3}}));
}

TEST_F(PipeStrengthsTest, WithoutAFileNothingIsKnownAndNothingSaid) {
  ReadPipeStrengths(program);
  EXPECT_TRUE(program.pipe_strengths.empty());
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(PipeStrengthsTest, AWrongLineIsToldByItsNumberAndTheOthersHold) {
  Read("12,10,2.8\n15,10\n18,10,1.9\n");
  EXPECT_EQ(Told(),
            "Line 2 of SafeHeads.txt is left out. It must have a diameter, a thickness in mils and a head, with commas "
            "between.");
  EXPECT_EQ(program.pipe_strengths.size(), 2U);
}

TEST_F(PipeStrengthsTest, FiguresAreNumbersAboveZero) {
  for (const char* figure : {"1O", "0", "-2", "2,5,", ""}) {
    host.messages.clear();
    Read("12,10," + std::string(figure));
    EXPECT_EQ(host.messages.size(), 1U) << figure;
    EXPECT_TRUE(program.pipe_strengths.empty()) << figure;
  }
  host.messages.clear();
  Read("# safe heads\n12,1O,2.8");
  EXPECT_EQ(Told(), "Line 2 of SafeHeads.txt is left out. \u201C1O\u201D is no number above 0.");
}

TEST_F(PipeStrengthsTest, ManyWrongLinesAreOneMessage) {
  Read("12,10,2.8\n12,10,3\nx\ny\n");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(Told(), "Line 2 of SafeHeads.txt is left out, and 2 more below it. The pipe stands further up already.");
}

TEST_F(PipeStrengthsTest, AFileThatCanNotBeReadIsTold) {
  std::filesystem::create_directory(host.ProgramFolder() + "/SafeHeads.txt");
  ReadPipeStrengths(program);
  EXPECT_EQ(Told(), "SafeHeads.txt could not be read: Is a directory. No safe heads are known.");
}

// The file that comes with the program: half of 4.62 x 1,450 x thickness / diameter, to tenths of a foot.
TEST_F(PipeStrengthsTest, TheTableThatComesWithTheProgramIsHalfOfTheYield) {
  Read(BytesOf(std::string(kSourceFolder) + "/data/SafeHeads.txt"));
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(program.pipe_strengths.size(), 16U);
  for (const PipeStrength& pipe : program.pipe_strengths) {
    EXPECT_NEAR(pipe.head, 0.5 * 4.62 * 1450 * pipe.mil / 1000 / pipe.diameter, 0.05) << pipe.diameter << pipe.mil;
  }
}

}  // namespace
}  // namespace torvale

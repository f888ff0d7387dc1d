// What the buttons of the crown profile do.
#include <gtest/gtest.h>

#include "reports/crown_profile.h"
#include "support/fake_host.h"

namespace torvale {
namespace {

struct ProfileCommandsTest : ::testing::Test {
  FakeHost host;
  Program program{host};
  int pictures = 0;

  ProfileCommandsTest() {
    program.profile.CrownProfile.visible = true;
    host.has_printer = true;
    host.print_profile = [this] {
      EXPECT_FALSE(program.profile.btnPrintProfile.visible);
      EXPECT_FALSE(program.profile.btnBack.visible);
      ++pictures;
      return true;
    };
  }
  void ExpectButtons() const {
    EXPECT_TRUE(program.profile.btnPrintProfile.visible);
    EXPECT_TRUE(program.profile.btnBack.visible);
    EXPECT_TRUE(program.profile.btnExportPicture.visible);
  }
};

TEST_F(ProfileCommandsTest, EachCopyIsAPictureWithoutTheButtons) {
  host.copies = 2;
  btnPrintProfile_Click(program);
  EXPECT_EQ(pictures, 2);
  EXPECT_TRUE(host.messages.empty());
  ExpectButtons();
}

TEST_F(ProfileCommandsTest, ACancelledDialogIsAPrintError) {
  host.copies = std::nullopt;
  btnPrintProfile_Click(program);
  EXPECT_EQ(pictures, 0);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "Printing was cancelled. print Error");
  ExpectButtons();
}

TEST_F(ProfileCommandsTest, WithoutAPrinterTheMessageSaysSo) {
  host.has_printer = false;
  btnPrintProfile_Click(program);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_TRUE(host.messages[0].body.starts_with("No printer is installed on this computer."));
  EXPECT_TRUE(host.messages[0].body.ends_with(" print Error"));
  EXPECT_EQ(host.printer_dialogs, 0);
  ExpectButtons();
}

TEST_F(ProfileCommandsTest, APrinterThatFailsEndsThePrinting) {
  host.copies = 3;
  host.print_profile = [this] { return ++pictures < 2; };
  btnPrintProfile_Click(program);
  EXPECT_EQ(pictures, 2);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_TRUE(host.messages[0].body.ends_with(" print Error"));
  ExpectButtons();
}

TEST_F(ProfileCommandsTest, APictureIsPngUnlessTheNameSaysPdf) {
  std::vector<std::string> written;
  host.write_profile = [&](const std::string& path) {
    written.push_back(path);
    return true;
  };
  host.paths = {"a/crown", "a/crown.PDF", "a/crown.png", std::nullopt};
  for (int i = 0; i < 4; ++i) btnExportPicture_Click(program);
  EXPECT_EQ(written, (std::vector<std::string>{"a/crown.png", "a/crown.PDF", "a/crown.png"}));
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(ProfileCommandsTest, APictureThatCanNotBeWrittenIsToldOf) {
  host.paths = {"a/crown.png"};
  btnExportPicture_Click(program);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(host.messages[0].body, "The picture could not be written to a/crown.png: Input/output error.");
}

}  // namespace
}  // namespace torvale

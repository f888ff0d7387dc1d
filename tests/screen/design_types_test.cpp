#include "screen/design_types.h"

#include <gtest/gtest.h>

#include <set>

#include "support/fake_host.h"

namespace torvale {
namespace {

std::vector<std::int16_t> Ticked(Program& program) {
  std::vector<std::int16_t> types;
  for (const DesignKind& kind : DesignKinds()) {
    if (FindControl(program, kind.entry)->ticked) types.push_back(kind.type);
  }
  return types;
}

TEST(DesignTypes, EachHasARowAndAMenuEntryOfItsOwn) {
  FakeHost desktop;
  Program program(desktop);
  std::set<std::string_view> entries;
  std::set<std::string_view> extensions;
  std::int16_t type = kPlanned;
  for (const DesignKind& kind : DesignKinds()) {
    EXPECT_EQ(kind.type, type++);
    EXPECT_EQ(FindDesignKind(kind.type), &kind);
    ASSERT_NE(FindControl(program, kind.entry), nullptr) << kind.entry;
    entries.insert(kind.entry);
    extensions.insert(kind.extension);
  }
  EXPECT_EQ(type, kSurveyOnly);  // the six before it are all
  EXPECT_EQ(entries.size(), 6U);
  EXPECT_EQ(extensions.size(), 6U);
  EXPECT_EQ(FindDesignKind(kNoDesign), nullptr);
  EXPECT_EQ(FindDesignKind(kSurveyOnly), nullptr);
}

TEST(DesignTypes, OneIsTickedAtATime) {
  FakeHost desktop;
  Program program(desktop);
  TickDesign(program, kDualSlope);
  TickDesign(program, kExistingField);
  EXPECT_EQ(Ticked(program), std::vector<std::int16_t>{kExistingField});
  TickDesign(program, kNoDesign);
  EXPECT_TRUE(Ticked(program).empty());
}

// The way back to the input screen leaves the tick of an existing field design alone.
TEST(DesignTypes, TheWayBackLeavesOneTick) {
  FakeHost desktop;
  Program program(desktop);
  for (const DesignKind& kind : DesignKinds()) FindControl(program, kind.entry)->ticked = true;
  UntickDesignsOnTheWayBack(program);
  EXPECT_EQ(Ticked(program), std::vector<std::int16_t>{kExistingField});
}

TEST(DesignTypes, TitlesStandBehindTheName) {
  EXPECT_EQ(TitleWith(""), "TORVALE   ");
  EXPECT_EQ(TitleWith(FindDesignKind(kExistingField)->title), "TORVALE   Existing Field Design");
}

}  // namespace
}  // namespace torvale

// The second selection of hole sizes, which repeats the first: passed over where nobody would see it.
#include "random_line.h"
#include "search/hole_selection.h"
#include "search/hole_selection_panel.h"

namespace torvale {
namespace {

class SelectionTwiceTest : public RandomLineTest {
 protected:
  void Select(bool by_list) {
    if (!by_list) return mnuComputerHoleSelection_Click(program);
    mnuManHoleSelection_Click(program);
    for (const char* size : {"1/4", "3/8", "1/2", "3/4", "1"}) main.listHolesSelected.Add(size);
    cmdExitHoleSelect_Click(program);
  }
};
class Watched : public SelectionTwiceTest {
  void TestBody() override {}

 public:
  using RandomLineTest::RandomLine;
  using SearchTest::host;
  using SearchTest::main;
  using SearchTest::record;
  using SelectionTwiceTest::Select;
  void Watch() {
    WatchYields([] {});
  }
};

template <typename T>
std::vector<T> All(const RowArray<T>& rows) {
  return std::vector<T>(rows.data(), rows.data() + kLastRow + 1);
}

// Where an event may come at each yield, both selections are made; where none is ahead, the second is counted alone.
// All that they leave must be the same, and the yields that were counted.
TEST(SelectionTwice, LeavesTheSameWhetherItIsMadeOrNot) {
  int repeated = 0;
  for (unsigned seed = 0; seed < 100; ++seed) {
    for (const bool by_list : {false, true}) {
      Watched quiet;
      Watched watched;
      for (Watched* one : {&quiet, &watched}) one->RandomLine(seed);
      watched.Watch();
      for (Watched* one : {&quiet, &watched}) one->Select(by_list);
      const DesignRecord& a = quiet.record;
      const DesignRecord& b = watched.record;
      SCOPED_TRACE(seed);
      ASSERT_EQ(quiet.host.yields, watched.host.yields);
      ASSERT_EQ(quiet.host.messages.size(), watched.host.messages.size());
      ASSERT_EQ(All(a.Head), All(b.Head));
      ASSERT_EQ(All(a.FurrowFlow), All(b.FurrowFlow));
      ASSERT_EQ(All(a.HoleArea), All(b.HoleArea));
      ASSERT_EQ(All(a.HoleSizeIdeal), All(b.HoleSizeIdeal));
      ASSERT_EQ(All(a.ComputerHoleDia), All(b.ComputerHoleDia));
      ASSERT_EQ(All(a.LimitedHoleDia), All(b.LimitedHoleDia));
      ASSERT_EQ(All(a.NormFurrowFlow), All(b.NormFurrowFlow));
      ASSERT_EQ(a.DesignOK, b.DesignOK);
      ASSERT_EQ(a.WateredFurrows, b.WateredFurrows);
      ASSERT_EQ(a.Uniformity, b.Uniformity);
      ASSERT_EQ(a.BestHeadFound, b.BestHeadFound);
      ASSERT_EQ(a.SeedEndHead, b.SeedEndHead);
      ASSERT_EQ(a.AccumGPM, b.AccumGPM);
      ASSERT_EQ(a.MaxHead, b.MaxHead);
      const float target = static_cast<float>(Val(quiet.main.txtInfo[3].text()));
      if (a.DesignOK == "True" && target < a.MaxHead) ++repeated;
    }
  }
  EXPECT_GT(repeated, 20);
}

// Cancel in the middle of the second selection ends that one: what was called idle reaches no further than the click.
TEST_F(SelectionTwiceTest, IsMadeWhereAClickComes) {
  RandomLine(1);
  ASSERT_NO_FATAL_FAILURE(Select(false));
  const long all = host.yields;
  ASSERT_EQ(record.DesignOK, "True");
  ASSERT_LT(static_cast<float>(Val(main.txtInfo[3].text())), record.MaxHead);
  ASSERT_TRUE(main.Grid2.control.visible);
  bool clicked = false;
  host.event_at = host.yields + all - 3;
  host.event = [&] {
    clicked = true;
    cmdCancel_Click(program);
  };
  Select(false);
  EXPECT_TRUE(clicked);
  EXPECT_FALSE(main.Grid2.control.visible);
}

}  // namespace
}  // namespace torvale

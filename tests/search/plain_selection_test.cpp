// The selections of hole sizes against the plain ones: the whole record and the yields.
#include "plain_selection.h"

#include "random_line.h"
#include "record/record_fields.h"
#include "search/head_loop.h"
#include "search/hole_selection_panel.h"

namespace torvale {
namespace {

class Selected : public RandomLineTest {
  void TestBody() override {}

 public:
  using SearchTest::record;
  explicit Selected(unsigned seed, bool by_list) {
    RandomLine(seed);
    if (by_list) {
      mnuManHoleSelection_Click(program);
      for (const char* size : {"1/4", "3/8", "1/2", "3/4", "1"}) main.listHolesSelected.Add(size);
      cmdExitHoleSelect_Click(program);
    } else {
      mnuComputerHoleSelection_Click(program);
    }
  }
  bool Designed() const {
    return record.DesignOK == "True" && record.MissingData == 0 && record.DesignType != kNoDesign;
  }
  // Yields of a selection.
  template <typename Selection>
  long Yields(Selection selection) {
    const long before = host.yields;
    selection(program);
    return host.yields - before;
  }
  void LookAtEachYield() {
    WatchYields([] {});
  }
};

void ExpectSameRecord(const DesignRecord& a, const DesignRecord& b) {
  ForEachRecordField([&](const auto& field) {
    // The clipboard of the sheets has no part in a selection.
    if constexpr (!std::is_same_v<decltype(field.member), TextGrid DesignRecord::*>) {
      EXPECT_TRUE(a.*field.member == b.*field.member) << field.name;
    }
  });
}

TEST(PlainSelection, IsTheFastOne) {
  int selected = 0;
  for (unsigned seed = 0; seed < 100 && !testing::Test::HasFailure(); ++seed) {
    for (const bool by_list : {false, true}) {
      SCOPED_TRACE(seed);
      Selected fast(seed, by_list);
      Selected plain(seed, by_list);
      if (!fast.Designed()) continue;
      ++selected;
      plain.LookAtEachYield();
      if (by_list) {
        fast.record.BestUniformity = plain.record.BestUniformity = 0;
        EXPECT_EQ(fast.Yields(EfficAdjust), plain.Yields(plain::LimitedSelection));
      } else {
        EXPECT_EQ(fast.Yields([](Program& program) { Cal_Dsign_Var(program); }),
                  plain.Yields(plain::ComputerSelection));
      }
      ExpectSameRecord(fast.record, plain.record);
    }
  }
  EXPECT_GT(selected, 100);
}

}  // namespace
}  // namespace torvale

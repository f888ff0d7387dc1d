#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "base/run_time_fault.h"
#include "display/design_display.h"
#include "shell/events.h"
#include "shell/started_program.h"

namespace torvale {
namespace {

using ::testing::HasSubstr;

using GuardedTest = StartedProgramTest;

TEST_F(GuardedTest, AFaultEndsInAPlainMessageThatNamesIt) {
  for (const Fault fault :
       {Fault::kDivisionByZero, Fault::kOverflow, Fault::kSubscript, Fault::kTypeMismatch, Fault::kInvalidArgument}) {
    host.messages.clear();
    Guarded(program, [&] { throw RunTimeFault{fault}; });
    ASSERT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(host.messages[0].title, "");
    EXPECT_THAT(host.messages[0].body, HasSubstr("The program could not finish this: "));
    EXPECT_THAT(host.messages[0].body, HasSubstr(std::string(FaultText(fault))));
  }
}

TEST_F(GuardedTest, AnyOtherExceptionEndsInAMessageToo) {
  Guarded(program, [] { throw std::runtime_error("0x7f"); });
  Guarded(program, [] { throw std::bad_alloc(); });
  ASSERT_EQ(host.messages.size(), 2U);
  EXPECT_THAT(host.messages[0].body, HasSubstr("Something unexpected went wrong."));
  EXPECT_THAT(host.messages[1].body, HasSubstr("out of memory"));
}

// A flag that a command leaves behind, as a cancelled search does, holds the pointer no longer than its event.
TEST_F(GuardedTest, ThePointerIsBusyOnlyWhileSomethingRuns) {
  std::vector<bool> seen;
  Guarded(program, [&] {
    seen.push_back(PointerIsBusy(program));
    program.main.main_busy = true;
    seen.push_back(PointerIsBusy(program));
  });
  EXPECT_EQ(seen, (std::vector<bool>{false, true}));
  EXPECT_TRUE(program.main.main_busy);
  EXPECT_FALSE(PointerIsBusy(program));
}

TEST_F(GuardedTest, WorkThatEndsWellSaysNothing) {
  bool done = false;
  Guarded(program, [&] { done = true; });
  EXPECT_TRUE(done);
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(GuardedTest, AFaultEndsTheBusyPointersAndTheCancelButtonOfItsWork) {
  Guarded(program, [&] {
    program.main.busy = program.main.main_busy = program.main.cmdCancel.visible = true;
    throw RunTimeFault{Fault::kOverflow};
  });
  EXPECT_FALSE(program.main.busy);
  EXPECT_FALSE(program.main.main_busy);
  EXPECT_FALSE(program.main.cmdCancel.visible);
}

TEST_F(GuardedTest, AFaultInTheMiddleOfACalculationLeavesItsPointerAndItsCancelButton) {
  Guarded(program, [&] {
    program.main.busy = program.main.cmdCancel.visible = true;
    Guarded(program, [] { throw RunTimeFault{Fault::kOverflow}; });
    EXPECT_TRUE(program.main.busy);
    EXPECT_TRUE(program.main.cmdCancel.visible);
  });
  EXPECT_EQ(host.messages.size(), 1U);
}

TEST_F(GuardedTest, AFaultUnlocksTheScreenThatItsWorkLocked) {
  Guarded(program, [&] {
    ScreenControlsOff(program);
    Guarded(program, [] { throw RunTimeFault{Fault::kOverflow}; });
    EXPECT_FALSE(program.main.mnuFile.enabled) << "the lock belongs to the work outside";
    throw RunTimeFault{Fault::kOverflow};
  });
  EXPECT_TRUE(program.main.mnuFile.enabled);
  EXPECT_TRUE(program.main.txtInfo[2].control.enabled);
}

TEST_F(GuardedTest, NothingTypedIsLost) {
  sheet().Set(2, 2, "900");
  TypeText(program, "txtInfo(2)", "1E39");  // past the 32-bit flow
  EXPECT_EQ(host.messages.size(), 1U);
  EXPECT_EQ(Info(2), "1E39");
  EXPECT_EQ(sheet().Text(2, 2), "900");
}

}  // namespace
}  // namespace torvale

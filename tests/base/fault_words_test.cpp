#include "base/fault_words.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "base/run_time_fault.h"

namespace torvale {
namespace {

template <typename Thrown>
std::string WordsFor(const Thrown& thrown) {
  return FaultWords(std::make_exception_ptr(thrown));
}

// What a user can do something about is told; what nobody foresaw is told as that, without the words of a library.
TEST(FaultWords, AreASentenceWhateverWasThrown) {
  EXPECT_EQ(WordsFor(RunTimeFault{Fault::kDivisionByZero}), std::string(FaultText(Fault::kDivisionByZero)));
  EXPECT_EQ(WordsFor(std::bad_alloc()), "The computer is out of memory.");
  EXPECT_EQ(WordsFor(std::runtime_error("basic_string::_M_create")), "Something unexpected went wrong.");
  EXPECT_EQ(WordsFor(7), "Something unexpected went wrong.");
}

}  // namespace
}  // namespace torvale

#include "base/fault_words.h"

#include <new>

#include "base/run_time_fault.h"

namespace torvale {

std::string FaultWords(const std::exception_ptr& thrown) {
  try {
    std::rethrow_exception(thrown);
  } catch (const RunTimeFault& fault) {
    return std::string(FaultText(fault.kind));
  } catch (const std::bad_alloc&) {
    return "The computer is out of memory.";
  } catch (...) {
    return "Something unexpected went wrong.";
  }
}

}  // namespace torvale

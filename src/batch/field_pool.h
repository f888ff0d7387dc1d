// Many fields on several threads. One that fails or hangs never stops the rest.
#pragma once

#include <chrono>
#include <functional>
#include <vector>

#include "batch/field_work.h"

namespace torvale {

// Works one thing out; made once for each thread and used by it alone.
using Worker = std::function<FieldOutcome(std::size_t index, const Until& until)>;

struct PoolOptions {
  int threads = 1;
  std::chrono::milliseconds limit{300'000};  // for each thing
  // What doesn't heed the limit is given up this long after it, and its thread with it.
  std::chrono::milliseconds grace{30'000};
};

struct PoolHandlers {
  std::function<Worker()> make_worker;
  // These two run on the calling thread. The first is told of each outcome, in the order in which they come; the second
  // comes several times a second and says whether to go on.
  std::function<void(std::size_t index, FieldOutcome outcome)> finished;
  std::function<bool()> tick;
  // Of a thing that was given up.
  std::function<FieldOutcome(std::size_t index)> hung;
};

// Works out the things of these indices and comes back when all are done, or soon after `tick` said to stop: what is at
// work then is cancelled and its outcome dropped. Gives back how many threads were given up; where it is more than 0
// they may still run, and the process must end without waiting for them (std::_Exit).
int WorkAll(const std::vector<std::size_t>& indices, const PoolOptions& options, const PoolHandlers& handlers);

}  // namespace torvale

#include "batch/field_pool.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace torvale {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kTick{100};

// A thread and what it works on. It is shared with the thread, which may outlive everybody else.
struct Hand {
  std::optional<std::size_t> at;  // index that it works on
  Clock::time_point since;
  bool given_up = false;
  bool ended = false;
};

struct Finished {
  std::size_t index;
  FieldOutcome outcome;
};

// All that the threads have in common.
struct Shared {
  std::mutex mutex;
  std::condition_variable news;
  std::vector<std::size_t> indices;
  std::size_t next = 0;
  std::deque<Finished> finished;
  std::stop_source stop;
};

void Work(const std::shared_ptr<Shared>& shared, const std::shared_ptr<Hand>& hand, const Worker& worker,
          std::chrono::milliseconds limit) {
  std::unique_lock lock(shared->mutex);
  while (!hand->given_up && !shared->stop.stop_requested() && shared->next < shared->indices.size()) {
    const std::size_t index = shared->indices[shared->next++];
    hand->at = index;
    hand->since = Clock::now();
    const Until until{shared->stop.get_token(), hand->since + limit};
    lock.unlock();
    FieldOutcome outcome = worker(index, until);
    lock.lock();
    hand->at.reset();
    if (!hand->given_up && !shared->stop.stop_requested()) shared->finished.push_back({index, std::move(outcome)});
    shared->news.notify_one();
  }
  hand->ended = true;
  shared->news.notify_one();
}

// The calling thread's side.
class Pool {
 public:
  Pool(const std::vector<std::size_t>& indices, const PoolOptions& options, const PoolHandlers& handlers)
      : options_(options), handlers_(handlers) {
    shared_->indices = indices;
  }

  int Run() {
    const std::size_t threads =
        std::min(static_cast<std::size_t>(std::max(1, options_.threads)), shared_->indices.size());
    for (std::size_t i = 0; i < threads; ++i) StartThread();
    std::unique_lock lock(shared_->mutex);
    while (!AllEnded()) {
      shared_->news.wait_for(lock, kTick);
      Deliver(lock);
      GiveUpHung(lock);
      lock.unlock();
      if (!handlers_.tick()) shared_->stop.request_stop();
      lock.lock();
    }
    Deliver(lock);
    lock.unlock();
    return Leave();
  }

 private:
  void StartThread() {
    auto hand = std::make_shared<Hand>();
    hands_.push_back(hand);
    threads_.emplace_back([shared = shared_, hand, worker = handlers_.make_worker(), limit = options_.limit] {
      Work(shared, hand, worker, limit);
    });
  }

  bool AllEnded() const {
    return std::all_of(hands_.begin(), hands_.end(), [](const auto& hand) { return hand->ended || hand->given_up; });
  }

  void Deliver(std::unique_lock<std::mutex>& lock) {
    while (!shared_->finished.empty()) {
      Finished one = std::move(shared_->finished.front());
      shared_->finished.pop_front();
      lock.unlock();
      handlers_.finished(one.index, std::move(one.outcome));
      lock.lock();
    }
  }

  void GiveUpHung(std::unique_lock<std::mutex>& lock) {
    const Clock::time_point latest = Clock::now() - options_.limit - options_.grace;
    // Threads that are started here come to the end of the list.
    // NOLINTNEXTLINE(modernize-loop-convert)
    for (std::size_t i = 0; i < hands_.size(); ++i) {
      Hand& hand = *hands_[i];
      if (hand.given_up || !hand.at || hand.since > latest) continue;
      hand.given_up = true;
      const std::size_t index = *hand.at;
      lock.unlock();
      handlers_.finished(index, handlers_.hung(index));
      StartThread();
      lock.lock();
    }
  }

  int Leave() {
    int left = 0;
    for (std::size_t i = 0; i < threads_.size(); ++i) {
      const bool ended = [&] {
        const std::lock_guard lock(shared_->mutex);
        return hands_[i]->ended;
      }();
      if (ended) {
        threads_[i].join();
      } else {
        threads_[i].detach();
        ++left;
      }
    }
    return left;
  }

  const PoolOptions& options_;
  const PoolHandlers& handlers_;
  std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
  std::vector<std::shared_ptr<Hand>> hands_;
  std::vector<std::thread> threads_;
};

}  // namespace

int WorkAll(const std::vector<std::size_t>& indices, const PoolOptions& options, const PoolHandlers& handlers) {
  return Pool(indices, options, handlers).Run();
}

}  // namespace torvale

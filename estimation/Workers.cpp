#include "estimation/Workers.h"

#include <algorithm>

namespace velmora {
namespace {

// A round of work takes some ten microseconds, and the next one follows when as many have passed:
// to wait for it awake costs less than to fall asleep, which takes longer than the work.
constexpr int kLooks = 2000;
constexpr int kYields = 400;  // then others may run between two looks

void WaitWhile(const std::atomic<std::uint64_t>& value, std::uint64_t seen) {
  for (int look = 0; look < kLooks + kYields; ++look) {
    if (value.load(std::memory_order_acquire) != seen) return;
    if (look >= kLooks) std::this_thread::yield();
  }
  value.wait(seen, std::memory_order_acquire);
}

// A round in one number: its own, the number of its items, the next of them.
constexpr unsigned kItemBits = 20;
constexpr std::uint64_t kMostItems = (std::uint64_t{1} << kItemBits) - 1;

std::uint64_t NextItem(std::uint64_t round) {
  return round & kMostItems;
}
std::uint64_t Items(std::uint64_t round) {
  return (round >> kItemBits) & kMostItems;
}
std::uint64_t RoundAfter(std::uint64_t round, std::uint64_t items) {
  return (((round >> 2 * kItemBits) + 1) << 2 * kItemBits) | (items << kItemBits);
}

}  // namespace

Workers::Workers(unsigned threads) {
  for (unsigned worker = 1; worker < threads; ++worker)
    others_.emplace_back([this, worker] { Serve(worker); });
}

Workers::~Workers() {
  ends_ = true;
  round_ = RoundAfter(round_, 0);
  round_.notify_all();
  for (std::thread& other : others_) other.join();
}

void Workers::ForEach(std::size_t items, const std::function<void(std::size_t, unsigned)>& work) {
  if (others_.empty() || items < 2 || items > kMostItems) {
    for (std::size_t item = 0; item < items; ++item) work(item, 0);
    return;
  }
  work_ = &work;
  done_ = 0;
  round_ = RoundAfter(round_, items);
  round_.notify_all();
  TakeItems(0);
  for (std::uint64_t done = done_; done != items; done = done_) WaitWhile(done_, done);
}

void Workers::Serve(unsigned worker) {
  for (;;) {
    const std::uint64_t round = TakeItems(worker);
    if (ends_) return;
    WaitWhile(round_, round);
  }
}

/// Works until no item is left to take; the round as it then stands.
std::uint64_t Workers::TakeItems(unsigned worker) {
  std::uint64_t round = round_;
  while (NextItem(round) < Items(round)) {
    if (!round_.compare_exchange_weak(round, round + 1)) continue;
    (*work_)(NextItem(round), worker);
    ++done_;
    done_.notify_one();
    round = round_;
  }
  return round;
}

unsigned AllCores() {
  return std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace velmora

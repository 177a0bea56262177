#include "estimation/Workers.h"

#include <algorithm>

namespace velmora {
namespace {

// A round of work takes some ten microseconds and the next one often follows at once: to wait for
// it awake costs less than to fall asleep.
constexpr int kLooksBeforeSleep = 4000;

void WaitWhile(const std::atomic<std::uint32_t>& value, std::uint32_t seen) {
  for (int look = 0; look < kLooksBeforeSleep; ++look)
    if (value.load(std::memory_order_acquire) != seen) return;
  value.wait(seen, std::memory_order_acquire);
}

}  // namespace

Workers::Workers(unsigned threads) {
  for (unsigned worker = 1; worker < threads; ++worker)
    others_.emplace_back([this, worker] { Serve(worker); });
}

Workers::~Workers() {
  ends_ = true;
  ++round_;
  round_.notify_all();
  for (std::thread& other : others_) other.join();
}

void Workers::ForEach(std::size_t items, const std::function<void(std::size_t, unsigned)>& work) {
  work_ = &work;
  items_ = items;
  next_ = 0;
  if (!others_.empty() && items > 1) {
    busy_ = static_cast<std::uint32_t>(others_.size());
    ++round_;
    round_.notify_all();
    TakeItems(0);
    for (std::uint32_t busy = busy_; busy != 0; busy = busy_) WaitWhile(busy_, busy);
  } else {
    TakeItems(0);
  }
}

void Workers::Serve(unsigned worker) {
  for (std::uint32_t seen = 0;;) {
    WaitWhile(round_, seen);
    seen = round_;
    if (ends_) return;
    TakeItems(worker);
    if (--busy_ == 0) busy_.notify_one();
  }
}

void Workers::TakeItems(unsigned worker) {
  for (std::size_t item = next_++; item < items_; item = next_++) (*work_)(item, worker);
}

unsigned AllCores() {
  return std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace velmora

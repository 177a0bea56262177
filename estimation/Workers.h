// A few threads that share out a piece of work again and again.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <thread>
#include <vector>

namespace velmora {

/// The calling thread and `threads` - 1 others, made once. What they do must not depend on who does
/// it, and must not throw.
class Workers {
 public:
  explicit Workers(unsigned threads);
  ~Workers();
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;

  unsigned Count() const { return static_cast<unsigned>(others_.size()) + 1; }

  /// Calls `work(item, worker)` for every item from 0 to `items` - 1, with the number of the thread
  /// from 0 on, and returns when all have ended.
  void ForEach(std::size_t items, const std::function<void(std::size_t, unsigned)>& work);

 private:
  void Serve(unsigned worker);
  std::uint64_t TakeItems(unsigned worker);

  const std::function<void(std::size_t, unsigned)>* work_ = nullptr;
  // The round of work, its number of items and the next of them, in one: whoever takes an item
  // knows that it is of this round, which does not end before the item has. So nobody is waited for
  // but those who are at work, and a thread that the system does not let run holds nobody up.
  std::atomic<std::uint64_t> round_{0};
  std::atomic<std::uint64_t> done_{0};  // items of the round
  std::atomic<bool> ends_{false};
  std::vector<std::thread> others_;
};

/// As many threads as this machine runs at once.
unsigned AllCores();

}  // namespace velmora

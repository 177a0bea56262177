// Files of the system by their descriptors, and why a call of it failed.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "data/FileFault.h"

namespace velmora {

/// A call of the system, made again for as long as a signal interrupts it.
template <typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

/// An open file or folder, closed at the end.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (IsOpen()) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }
  /// A descriptor is gone after an interrupted close too; it must not be closed again.
  bool Close() { return close(std::exchange(number_, -1)) == 0 || errno == EINTR; }

 private:
  int number_;
};

/// The fault of a call that has just failed.
inline FileFault SystemFault(FileReason reason, const std::string& path) {
  const int error = errno;
  return {reason, path, 0, FileField::None, 0, std::generic_category().message(error)};
}

inline FileFault NoRegularFile(const std::string& path) {
  return {FileReason::NotARegularFile, path, 0, FileField::None, 0, ""};
}

}  // namespace velmora

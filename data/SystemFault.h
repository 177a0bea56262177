// Why the system refused something, as a fault of a file.
#pragma once

#include <cerrno>
#include <string>
#include <system_error>

#include "data/FileFault.h"

namespace velmora {

/// The fault of a call that has just failed, with its reason in errno.
inline FileFault SystemFault(FileReason reason, const std::string& path) {
  const int error = errno;
  return {reason, path, 0, FileField::None, 0, std::generic_category().message(error)};
}

inline FileFault NoRegularFile(const std::string& path) {
  return {FileReason::NotARegularFile, path, 0, FileField::None, 0, ""};
}

}  // namespace velmora

// The bytes of a file, read whole or not at all.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "data/FileFault.h"

namespace velmora {

/// The bytes of a file, or why they cannot be had.
struct FileBytes {
  std::string bytes;
  std::optional<FileFault> fault;
};

/// Of a regular file with at most `limit` bytes.
FileBytes ReadWholeFile(const std::string& path, std::size_t limit = kUsualLimit);

/// Of standard input, whatever it is, to its end; `name` is what a fault calls it.
FileBytes ReadStandardInput(const std::string& name, std::size_t limit = kUsualLimit);

}  // namespace velmora

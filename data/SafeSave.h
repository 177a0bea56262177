// Saving that leaves either the old file or the whole new one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/FileFault.h"

namespace velmora {

/// Writes `bytes` to a temporary file in the target's folder, flushes it to the disk and renames
/// it over `path`. On any error the temporary file is removed and what was there is untouched. The
/// permissions of an existing file are kept, a symbolic link is followed. Refuses a target that
/// exists and is no regular file.
std::optional<FileFault> SafeSave(const std::string& path, std::string_view bytes);

/// Why `SafeSave` would refuse to write there, found out without leaving a trace: asked before the
/// work whose result is to be saved.
std::optional<FileFault> TrySave(const std::string& path);

/// The bytes of a regular file, or why they cannot be had.
struct FileBytes {
  std::string bytes;
  std::optional<FileFault> fault;
};
FileBytes ReadWholeFile(const std::string& path);

}  // namespace velmora

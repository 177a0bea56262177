// Saving that leaves either the old file or the whole new one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/FileFault.h"

namespace velmora {

/// Writes `bytes` to a temporary file in the target's folder, flushes it to the disk and renames
/// it over `path`. On any error the temporary file is removed and what was there is untouched; what
/// a save that was killed left in the folder is removed too. The permissions of an existing file
/// are kept, its owner and group where the user may give files to them, a symbolic link is
/// followed. Refuses a target that exists and is no regular file.
std::optional<FileFault> SafeSave(const std::string& path, std::string_view bytes);

/// Why `SafeSave` would refuse to write there, found out without leaving a trace: asked before the
/// work whose result is to be saved.
std::optional<FileFault> TrySave(const std::string& path);

/// What saving over a file would change beside its bytes.
struct SaveChanges {
  bool otherNames = false;  // its other names (hard links) keep the old bytes
  bool owner = false;       // owner or group become the user's own
  bool accessList = false;  // what it grants beyond owner, group and mode is gone
};
SaveChanges ChangesOfSaving(const std::string& path);

}  // namespace velmora

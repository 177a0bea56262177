#include "data/SafeSave.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <random>
#include <system_error>

#include "data/SystemFault.h"
#include "platform/System.h"

namespace velmora {
namespace {

namespace fs = std::filesystem;

// Short, so that a temporary name fits wherever the target's own name does.
constexpr std::string_view kTemporaryMark = ".velmora-";
constexpr std::size_t kMostDigits = 8;

std::string TemporaryName() {
  std::array<char, kMostDigits> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), std::random_device{}(), 36).ptr;
  return std::string(kTemporaryMark).append(digits.data(), end);
}

bool IsTemporaryName(std::string_view name) {
  if (!name.starts_with(kTemporaryMark)) return false;
  name.remove_prefix(kTemporaryMark.size());
  return !name.empty() && name.size() <= kMostDigits &&
         name.find_first_not_of("0123456789abcdefghijklmnopqrstuvwxyz") == std::string_view::npos;
}

/// Takes the file for this save, for as long as it is open. False where another save has meanwhile
/// taken it for one that was left behind, and removed it. Where a file system has no locks, nothing
/// is removed either.
bool Claim(const OpenFile& file) {
  file.Lock();
  const auto state = file.State();
  return state && state->names > 0;
}

/// Removes what saves that were killed left in the folder: our own files that no save holds.
void RemoveLeftBehind(const OpenFolder& folder) {
  for (const std::string& name : folder.Names()) {
    if (!IsTemporaryName(name)) continue;
    const OpenFile file = folder.OpenOwn(name);
    if (file.IsOpen() && file.TryLock()) folder.Remove(name);
  }
}

/// Creates a file that was not there before; `name` stays empty where that fails.
OpenFile CreateIn(const OpenFolder& folder, bool forOwnerAlone, std::string& name) {
  constexpr int kMostTries = 100;
  for (int tried = 1;; ++tried) {
    const std::string candidate = TemporaryName();
    OpenFile file = folder.Create(candidate, forOwnerAlone);
    if (file.IsOpen() && !Claim(file)) continue;
    if (file.IsOpen()) name = candidate;
    if (file.IsOpen() || errno != EEXIST || tried == kMostTries) return file;
  }
}

/// A new file in a folder, removed at the end unless it has taken the target's name. It stays open
/// until then: a file that no save holds may be removed.
class TemporaryFile {
 public:
  TemporaryFile(const OpenFolder& folder, bool forOwnerAlone)
      : folder_(folder), file_(CreateIn(folder, forOwnerAlone, name_)) {}
  ~TemporaryFile() {
    if (!name_.empty()) folder_.Remove(name_);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const OpenFile& File() const { return file_; }
  bool RenameTo(const std::string& name) {
    if (!folder_.Rename(name_, name)) return false;
    name_.clear();
    return true;
  }

 private:
  const OpenFolder& folder_;
  std::string name_;
  OpenFile file_;
};

/// The file that a path names through any symbolic links, there or yet to be created.
fs::path BehindLinks(fs::path path) {
  constexpr int kMostLinks = 40;  // as many as the system itself follows
  std::error_code error;
  for (int links = 0; links < kMostLinks && fs::is_symlink(path, error); ++links)
    path = path.parent_path() / fs::read_symlink(path, error);
  return path;
}

/// Renaming could replace a device or a write-protected file without a word.
std::optional<FileFault> RefuseTarget(const FileState& old, const std::string& path) {
  if (!old.regular) return NoRegularFile(path);
  if (!MayWrite(path)) return SystemFault(FileReason::CannotWrite, path);
  return std::nullopt;
}

/// What `SafeSave` does where there are bytes; without, all of it up to them.
std::optional<FileFault> Save(const std::string& path, std::optional<std::string_view> bytes) {
  const std::optional<FileState> old = StateOf(path);
  if (!old && errno != ENOENT) return SystemFault(FileReason::CannotWrite, path);
  if (old)
    if (auto fault = RefuseTarget(*old, path)) return fault;

  const fs::path target = BehindLinks(path);
  const OpenFolder folder(target.has_parent_path() ? target.parent_path().string() : ".");
  if (!folder.IsOpen()) return SystemFault(FileReason::CannotWrite, path);

  RemoveLeftBehind(folder);
  TemporaryFile temporary(folder, old.has_value());
  const OpenFile& file = temporary.File();
  if (!file.IsOpen() || (old && !file.TakeAfter(*old)))
    return SystemFault(FileReason::CannotWrite, path);
  if (!bytes) return std::nullopt;
  if (!file.Write(*bytes) || !file.Flush() || !temporary.RenameTo(target.filename()))
    return SystemFault(FileReason::CannotWrite, path);
  // The new file stands in its place by now in any case.
  folder.Flush();
  return std::nullopt;
}

}  // namespace

SaveChanges ChangesOfSaving(const std::string& path) {
  const std::optional<FileState> old = StateOf(path);
  if (!old) return {};
  return {old->names > 1, !MayGiveOwnerOf(*old), HasAccessList(path)};
}

std::optional<FileFault> SafeSave(const std::string& path, std::string_view bytes) {
  return Save(path, bytes);
}

std::optional<FileFault> TrySave(const std::string& path) {
  return Save(path, std::nullopt);
}

}  // namespace velmora

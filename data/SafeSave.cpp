#include "data/SafeSave.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <climits>
#include <filesystem>
#include <random>
#include <system_error>

#include "data/Descriptor.h"

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
/// taken it for one that was left behind, and removed it.
bool Claim(int file) {
  flock(file, LOCK_EX);  // where a file system has no locks, nothing is removed either
  struct stat status {};
  return fstat(file, &status) == 0 && status.st_nlink > 0;
}

/// Removes what saves that were killed left in the folder: our own files that no save holds.
void RemoveLeftBehind(int folder) {
  const int copy = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  DIR* const entries = copy < 0 ? nullptr : fdopendir(copy);
  if (!entries) return;
  while (const dirent* const entry = readdir(entries)) {
    if (!IsTemporaryName(entry->d_name)) continue;
    constexpr int kCarefully = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    const Descriptor file(openat(folder, entry->d_name, kCarefully));
    struct stat status {};
    if (!file.IsOpen() || fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    if (status.st_uid == geteuid() && flock(file.Number(), LOCK_EX | LOCK_NB) == 0)
      unlinkat(folder, entry->d_name, 0);
  }
  closedir(entries);
}

/// Creates a file that was not there before; `name` stays empty where that fails.
int CreateIn(int folder, mode_t mode, std::string& name) {
  constexpr int kMostTries = 100;
  for (int tried = 1;; ++tried) {
    const std::string candidate = TemporaryName();
    const int file = Uninterrupted([&] {
      return openat(folder, candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    });
    if (file >= 0 && !Claim(file)) {
      close(file);
      continue;
    }
    if (file >= 0) name = candidate;
    if (file >= 0 || errno != EEXIST || tried == kMostTries) return file;
  }
}

/// A new file in a folder, removed at the end unless it has taken the target's name. The routines
/// are false where the system refuses, with its reason in errno.
class TemporaryFile {
 public:
  TemporaryFile(const Descriptor& folder, mode_t mode)
      : folder_(folder.Number()), file_(CreateIn(folder_, mode, name_)) {}
  ~TemporaryFile() {
    if (!name_.empty()) unlinkat(folder_, name_.c_str(), 0);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool IsOpen() const { return file_.IsOpen(); }
  /// Gives it the owner, where that is allowed, and the permissions of the file that it replaces.
  bool TakeAfter(const struct stat& old) {
    constexpr mode_t kPermissions = 0777;
    if (fchown(file_.Number(), old.st_uid, old.st_gid) != 0 &&
        fchown(file_.Number(), kUnchanged, old.st_gid) != 0)
      errno = 0;  // told by `ChangesOfSaving`
    return fchmod(file_.Number(), old.st_mode & kPermissions) == 0;
  }
  /// Writes all of `bytes`, to the disk.
  bool Fill(std::string_view bytes) {
    const int file = file_.Number();
    while (!bytes.empty()) {
      const ssize_t written =
          Uninterrupted([&] { return write(file, bytes.data(), bytes.size()); });
      if (written <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return Uninterrupted([&] { return fsync(file); }) == 0;
  }
  /// It stays open until then: a file that no save holds may be removed.
  bool RenameTo(const std::string& name) {
    if (renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return false;
    name_.clear();
    return true;
  }

 private:
  static constexpr auto kUnchanged = static_cast<uid_t>(-1);

  int folder_;
  std::string name_;
  Descriptor file_;
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
std::optional<FileFault> RefuseTarget(const struct stat& old, const std::string& path) {
  if (!S_ISREG(old.st_mode)) return NoRegularFile(path);
  if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
    return SystemFault(FileReason::CannotWrite, path);
  return std::nullopt;
}

/// What `SafeSave` does where there are bytes; without, all of it up to them.
std::optional<FileFault> Save(const std::string& path, std::optional<std::string_view> bytes) {
  struct stat old {};
  const bool exists = stat(path.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) return SystemFault(FileReason::CannotWrite, path);
  if (exists)
    if (auto fault = RefuseTarget(old, path)) return fault;

  const fs::path target = BehindLinks(path);
  const std::string folderName = target.has_parent_path() ? target.parent_path() : fs::path(".");
  const Descriptor folder(open(folderName.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen()) return SystemFault(FileReason::CannotWrite, path);

  RemoveLeftBehind(folder.Number());
  constexpr mode_t kOwnerOnly = 0600, kUsual = 0666;
  TemporaryFile temporary(folder, exists ? kOwnerOnly : kUsual);
  if (!temporary.IsOpen() || (exists && !temporary.TakeAfter(old)))
    return SystemFault(FileReason::CannotWrite, path);
  if (!bytes) return std::nullopt;
  if (!temporary.Fill(*bytes) || !temporary.RenameTo(target.filename()))
    return SystemFault(FileReason::CannotWrite, path);
  // Some file systems cannot flush a folder. The new file stands in its place by now in any case.
  fsync(folder.Number());
  return std::nullopt;
}

bool IsInGroup(gid_t group) {
  std::array<gid_t, NGROUPS_MAX> groups{};
  const int count = getgroups(static_cast<int>(groups.size()), groups.data());
  const auto end = groups.begin() + std::max(count, 0);
  return group == getegid() || std::find(groups.begin(), end, group) != end;
}

}  // namespace

/// Whether the file has an access list beyond its mode, as Linux keeps it (acl(5)).
bool HasAccessList(const std::string& path) {
  return getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
}

SaveChanges ChangesOfSaving(const std::string& path) {
  struct stat old {};
  if (stat(path.c_str(), &old) != 0) return {};
  const bool mayGive = geteuid() == 0 || (old.st_uid == geteuid() && IsInGroup(old.st_gid));
  return {old.st_nlink > 1, !mayGive, HasAccessList(path)};
}

std::optional<FileFault> SafeSave(const std::string& path, std::string_view bytes) {
  return Save(path, bytes);
}

std::optional<FileFault> TrySave(const std::string& path) {
  return Save(path, std::nullopt);
}

}  // namespace velmora

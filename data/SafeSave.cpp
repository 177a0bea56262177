#include "data/SafeSave.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

namespace velmora {
namespace {

namespace fs = std::filesystem;

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
FileFault SystemFault(FileReason reason, const std::string& path) {
  const int error = errno;
  return {reason, path, 0, FileField::None, 0, std::generic_category().message(error)};
}

FileFault NoRegularFile(const std::string& path) {
  return {FileReason::NotARegularFile, path, 0, FileField::None, 0, ""};
}

/// Short, so that it fits wherever the target's own name does.
std::string TemporaryName() {
  std::array<char, 8> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), std::random_device{}(), 36).ptr;
  return ".velmora-" + std::string(digits.data(), end);
}

/// Creates a file that was not there before; `name` stays empty where that fails.
int CreateIn(int folder, mode_t mode, std::string& name) {
  constexpr int kMostTries = 100;
  for (int tried = 1;; ++tried) {
    const std::string candidate = TemporaryName();
    const int file = Uninterrupted([&] {
      return openat(folder, candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    });
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
  bool SetPermissions(mode_t mode) { return fchmod(file_.Number(), mode) == 0; }
  /// Writes all of `bytes`, to the disk, and closes the file.
  bool Fill(std::string_view bytes) {
    const int file = file_.Number();
    while (!bytes.empty()) {
      const ssize_t written =
          Uninterrupted([&] { return write(file, bytes.data(), bytes.size()); });
      if (written <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return Uninterrupted([&] { return fsync(file); }) == 0 && file_.Close();
  }
  bool RenameTo(const std::string& name) {
    if (renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return false;
    name_.clear();
    return true;
  }

 private:
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

  constexpr mode_t kOwnerOnly = 0600, kUsual = 0666, kPermissions = 0777;
  TemporaryFile temporary(folder, exists ? kOwnerOnly : kUsual);
  if (!temporary.IsOpen() || (exists && !temporary.SetPermissions(old.st_mode & kPermissions)))
    return SystemFault(FileReason::CannotWrite, path);
  if (!bytes) return std::nullopt;
  if (!temporary.Fill(*bytes) || !temporary.RenameTo(target.filename()))
    return SystemFault(FileReason::CannotWrite, path);
  // Some file systems cannot flush a folder. The new file stands in its place by now in any case.
  fsync(folder.Number());
  return std::nullopt;
}

}  // namespace

std::optional<FileFault> SafeSave(const std::string& path, std::string_view bytes) {
  return Save(path, bytes);
}

std::optional<FileFault> TrySave(const std::string& path) {
  return Save(path, std::nullopt);
}

namespace {

FileBytes ReadToTheEnd(const Descriptor& file, const std::string& path) {
  FileBytes read;
  std::vector<char> buffer(1 << 16);
  for (;;) {
    const ssize_t count =
        Uninterrupted([&] { return ::read(file.Number(), buffer.data(), buffer.size()); });
    if (count < 0) return {"", SystemFault(FileReason::CannotRead, path)};
    if (count == 0) return read;
    read.bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

FileBytes ReadWholeFile(const std::string& path) {
  // Without O_NONBLOCK a pipe that nobody writes to would be waited for.
  const Descriptor file(Uninterrupted(
      [&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
  if (!file.IsOpen()) return {"", SystemFault(FileReason::CannotOpen, path)};
  struct stat status {};
  if (fstat(file.Number(), &status) != 0) return {"", SystemFault(FileReason::CannotOpen, path)};
  if (!S_ISREG(status.st_mode)) return {"", NoRegularFile(path)};

  try {
    return ReadToTheEnd(file, path);
  } catch (const std::bad_alloc&) {
    errno = ENOMEM;
    return {"", SystemFault(FileReason::CannotRead, path)};
  }
}

}  // namespace velmora

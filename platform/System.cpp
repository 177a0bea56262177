#include "platform/System.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <utility>

namespace velmora {
namespace {

constexpr mode_t kPermissions = 0777;

/// A call of the system, made again for as long as a signal interrupts it.
template <typename Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

int Opened(const std::string& path, int flags, mode_t mode = 0) {
  return Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); });
}

FileState StateFrom(const struct stat& status) {
  return {S_ISREG(status.st_mode),
          static_cast<std::uint64_t>(status.st_size),
          status.st_nlink,
          status.st_ino,
          status.st_mode & kPermissions,
          status.st_uid,
          status.st_gid};
}

bool IsInGroup(gid_t group) {
  std::array<gid_t, NGROUPS_MAX> groups{};
  const int count = getgroups(static_cast<int>(groups.size()), groups.data());
  const auto end = groups.begin() + std::max(count, 0);
  return group == getegid() || std::find(groups.begin(), end, group) != end;
}

constexpr std::array kStopSignals = {SIGINT, SIGTERM, SIGHUP};

// A signal handler has nothing else to write to; threads read it.
std::atomic<int> noted = 0;
static_assert(std::atomic<int>::is_always_lock_free);
// What was done on each signal before.
std::array<struct sigaction, kStopSignals.size()> before{};

/// The next signal does what it usually does: it ends the program.
extern "C" void NoteSignal(int signal) {
  noted = signal;
  for (const int each : kStopSignals) {
    struct sigaction now = {};
    sigaction(each, nullptr, &now);
    if (now.sa_handler == NoteSignal) std::signal(each, SIG_DFL);
  }
}

}  // namespace

std::optional<FileState> StateOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return std::nullopt;
  return StateFrom(status);
}

bool MayWrite(const std::string& path) {
  return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
}

bool MayGiveOwnerOf(const FileState& file) {
  return geteuid() == 0 || (file.owner == geteuid() && IsInGroup(file.group));
}

bool HasAccessList(const std::string& path) {
  return getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0) > 0;
}

OpenFile::~OpenFile() {
  if (IsOpen()) close(number_);
}

OpenFile::OpenFile(OpenFile&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

OpenFile OpenFile::ToRead(const std::string& path) {
  return OpenFile(Opened(path, O_RDONLY | O_NONBLOCK | O_NOCTTY));
}

OpenFile OpenFile::ToContinue(const std::string& path) {
  return OpenFile(Opened(path, O_RDWR | O_CREAT | O_APPEND, 0666));
}

OpenFile OpenFile::ToLock(const std::string& path) {
  return OpenFile(Opened(path, O_RDWR | O_CREAT, S_IRUSR | S_IWUSR));
}

OpenFile OpenFile::StandardInput() {
  return OpenFile(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
}

std::optional<FileState> OpenFile::State() const {
  struct stat status {};
  if (fstat(number_, &status) != 0) return std::nullopt;
  return StateFrom(status);
}

std::optional<std::size_t> OpenFile::Read(char* into, std::size_t most) const {
  const ssize_t count = Uninterrupted([&] { return ::read(number_, into, most); });
  if (count < 0) return std::nullopt;
  return static_cast<std::size_t>(count);
}

bool OpenFile::Write(std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(number_, bytes.data(), bytes.size()); });
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool OpenFile::Flush() const {
  return Uninterrupted([&] { return fsync(number_); }) == 0;
}

bool OpenFile::Cut(std::size_t size) const {
  return ftruncate(number_, static_cast<off_t>(size)) == 0;
}

void OpenFile::Lock() const {
  Uninterrupted([&] { return flock(number_, LOCK_EX); });
}

bool OpenFile::TryLock() const {
  return flock(number_, LOCK_EX | LOCK_NB) == 0;
}

bool OpenFile::TakeAfter(const FileState& other) const {
  constexpr auto kUnchanged = static_cast<uid_t>(-1);
  if (fchown(number_, other.owner, other.group) != 0 &&
      fchown(number_, kUnchanged, other.group) != 0)
    errno = 0;  // the user's own it is
  return fchmod(number_, other.permissions) == 0;
}

OpenFolder::OpenFolder(const std::string& path) : file_(Opened(path, O_RDONLY | O_DIRECTORY)) {}

std::vector<std::string> OpenFolder::Names() const {
  std::vector<std::string> names;
  const int copy = openat(file_.number_, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  DIR* const entries = copy < 0 ? nullptr : fdopendir(copy);
  if (!entries) return names;
  while (const dirent* const entry = readdir(entries)) names.emplace_back(entry->d_name);
  closedir(entries);
  return names;
}

OpenFile OpenFolder::Create(const std::string& name, bool forOwnerAlone) const {
  const mode_t mode = forOwnerAlone ? 0600 : 0666;
  return OpenFile(Uninterrupted([&] {
    return openat(file_.number_, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
  }));
}

OpenFile OpenFolder::OpenOwn(const std::string& name) const {
  OpenFile file(
      openat(file_.number_, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  const auto state = file.State();
  return state && state->regular && state->owner == geteuid() ? std::move(file) : OpenFile();
}

bool OpenFolder::Rename(const std::string& from, const std::string& to) const {
  return renameat(file_.number_, from.c_str(), file_.number_, to.c_str()) == 0;
}

void OpenFolder::Remove(const std::string& name) const {
  unlinkat(file_.number_, name.c_str(), 0);
}

void OpenFolder::Flush() const {
  fsync(file_.number_);
}

void RemoveFile(const std::string& path) {
  unlink(path.c_str());
}

bool IsTerminal(Stream stream) {
  return isatty(stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO) != 0;
}

void LetClosedPipesFail() {
  std::signal(SIGPIPE, SIG_IGN);
}

StopSignals::StopSignals() {
  noted = 0;
  struct sigaction noting = {};
  noting.sa_handler = NoteSignal;
  noting.sa_flags = SA_RESTART;
  sigemptyset(&noting.sa_mask);
  for (const int signal : kStopSignals) sigaddset(&noting.sa_mask, signal);
  for (std::size_t i = 0; i < kStopSignals.size(); ++i) {
    sigaction(kStopSignals[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(kStopSignals[i], &noting, nullptr);
  }
}

StopSignals::~StopSignals() {
  for (std::size_t i = 0; i < kStopSignals.size(); ++i)
    sigaction(kStopSignals[i], &before[i], nullptr);
}

int StopSignals::Noted() const {
  return noted;
}

}  // namespace velmora

// Preloaded into a program: makes the call number FAIL_CALL of those below fail, or, where FAIL_HOW
// is "kill", ends the program there, and writes the call's name to FAIL_LOG.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>

namespace {

int calls = 0;

void Log(const char* name) {
  const char* const file = std::getenv("FAIL_LOG");
  if (file == nullptr) return;
  const long log = syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  syscall(SYS_write, log, name, std::strlen(name));
  syscall(SYS_close, log);
}

/// Whether this call is the one.
bool Fails(const char* name, int error) {
  const char* const number = std::getenv("FAIL_CALL");
  if (number == nullptr || ++calls != std::atoi(number)) return false;
  Log(name);
  const char* const how = std::getenv("FAIL_HOW");
  if (how != nullptr && std::strcmp(how, "kill") == 0) syscall(SYS_kill, getpid(), SIGKILL);
  errno = error;
  return true;
}

template <class Function>
Function Next(const char* name, Function) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

mode_t ModeOf(int flags, va_list arguments) {
  return (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(arguments, int)) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Fails("open", EACCES) ? -1 : Next("open", open)(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(flags, arguments);
  va_end(arguments);
  return Fails("openat", EDQUOT) ? -1 : Next("openat", openat)(folder, path, flags, mode);
}

/// Half of the bytes, as a disk that fills up takes; the rest is refused by the next call.
ssize_t write(int file, const void* bytes, size_t count) {
  if (Fails("write", ENOSPC)) return -1;
  return Next("write", write)(file, bytes, count > 1 && file > 2 ? count / 2 : count);
}

int fsync(int file) {
  return Fails("fsync", EIO) ? -1 : Next("fsync", fsync)(file);
}

int close(int file) {
  const int closed = Next("close", close)(file);
  return Fails("close", EIO) ? -1 : closed;
}

int fchmod(int file, mode_t mode) {
  return Fails("fchmod", EPERM) ? -1 : Next("fchmod", fchmod)(file, mode);
}

int fchown(int file, uid_t owner, gid_t group) {
  return Fails("fchown", EPERM) ? -1 : Next("fchown", fchown)(file, owner, group);
}

int rename(const char* from, const char* to) {
  return Fails("rename", EACCES) ? -1 : Next("rename", rename)(from, to);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) {
  return Fails("renameat", EACCES) ? -1
                                   : Next("renameat", renameat)(fromFolder, from, toFolder, to);
}

int unlinkat(int folder, const char* path, int flags) {
  return Fails("unlinkat", EACCES) ? -1 : Next("unlinkat", unlinkat)(folder, path, flags);
}

int stat(const char* path, struct stat* status) noexcept {
  return Fails("stat", EACCES) ? -1 : Next("stat", stat)(path, status);
}

int fstat(int file, struct stat* status) noexcept {
  return Fails("fstat", EIO) ? -1 : Next("fstat", fstat)(file, status);
}

int faccessat(int folder, const char* path, int mode, int flags) noexcept {
  return Fails("faccessat", EACCES) ? -1 : Next("faccessat", faccessat)(folder, path, mode, flags);
}

}  // extern "C"

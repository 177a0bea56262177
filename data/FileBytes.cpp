#include "data/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <new>
#include <vector>

#include "data/Descriptor.h"

namespace velmora {
namespace {

FileBytes TooLarge(const std::string& path, std::size_t limit) {
  return {"", FileFault{FileReason::TooLarge, path, 0, FileField::None, 0, MegabytesText(limit)}};
}

FileBytes ReadToTheEnd(int file, const std::string& path, std::size_t limit) {
  FileBytes read;
  std::vector<char> buffer(1 << 16);
  for (;;) {
    const ssize_t count = Uninterrupted([&] { return ::read(file, buffer.data(), buffer.size()); });
    if (count < 0) return {"", SystemFault(FileReason::CannotRead, path)};
    if (count == 0) return read;
    if (read.bytes.size() + static_cast<std::size_t>(count) > limit) return TooLarge(path, limit);
    read.bytes.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

FileBytes ReadInMemory(int file, const std::string& path, std::size_t limit) {
  try {
    return ReadToTheEnd(file, path, limit);
  } catch (const std::bad_alloc&) {
    errno = ENOMEM;
    return {"", SystemFault(FileReason::CannotRead, path)};
  }
}

}  // namespace

FileBytes ReadWholeFile(const std::string& path, std::size_t limit) {
  // Without O_NONBLOCK a pipe that nobody writes to would be waited for.
  const Descriptor file(Uninterrupted(
      [&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
  if (!file.IsOpen()) return {"", SystemFault(FileReason::CannotOpen, path)};
  struct stat status {};
  if (fstat(file.Number(), &status) != 0) return {"", SystemFault(FileReason::CannotOpen, path)};
  if (!S_ISREG(status.st_mode)) return {"", NoRegularFile(path)};
  // Told before any memory is taken; a file that grows is stopped as it is read.
  if (static_cast<std::size_t>(status.st_size) > limit) return TooLarge(path, limit);
  return ReadInMemory(file.Number(), path, limit);
}

FileBytes ReadStandardInput(const std::string& name, std::size_t limit) {
  return ReadInMemory(STDIN_FILENO, name, limit);
}

}  // namespace velmora

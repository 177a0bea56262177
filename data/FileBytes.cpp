#include "data/FileBytes.h"

#include <cerrno>
#include <new>
#include <vector>

#include "data/SystemFault.h"
#include "platform/System.h"

namespace velmora {
namespace {

FileBytes TooLarge(const std::string& path, std::size_t limit) {
  return {"", FileFault{FileReason::TooLarge, path, 0, FileField::None, 0, MegabytesText(limit)}};
}

FileBytes ReadToTheEnd(const OpenFile& file, const std::string& path, std::size_t limit) {
  FileBytes read;
  std::vector<char> buffer(1 << 16);
  for (;;) {
    const std::optional<std::size_t> count = file.Read(buffer.data(), buffer.size());
    if (!count) return {"", SystemFault(FileReason::CannotRead, path)};
    if (*count == 0) return read;
    if (read.bytes.size() + *count > limit) return TooLarge(path, limit);
    read.bytes.append(buffer.data(), *count);
  }
}

FileBytes ReadInMemory(const OpenFile& file, const std::string& path, std::size_t limit) {
  try {
    return ReadToTheEnd(file, path, limit);
  } catch (const std::bad_alloc&) {
    errno = ENOMEM;
    return {"", SystemFault(FileReason::CannotRead, path)};
  }
}

}  // namespace

FileBytes ReadWholeFile(const std::string& path, std::size_t limit) {
  const OpenFile file = OpenFile::ToRead(path);
  const std::optional<FileState> state = file.IsOpen() ? file.State() : std::nullopt;
  if (!state) return {"", SystemFault(FileReason::CannotOpen, path)};
  if (!state->regular) return {"", NoRegularFile(path)};
  // Told before any memory is taken; a file that grows is stopped as it is read.
  if (state->size > limit) return TooLarge(path, limit);
  return ReadInMemory(file, path, limit);
}

FileBytes ReadStandardInput(const std::string& name, std::size_t limit) {
  return ReadInMemory(OpenFile::StandardInput(), name, limit);
}

}  // namespace velmora

#include "data/Archive.h"

#include <zip.h>

#include <vector>

#include "data/FileFault.h"
#include "data/TableFault.h"

namespace velmora {
namespace {

struct CloseFile {
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};

[[noreturn]] void FailDamaged() {
  throw TableFault{TextId::WorkbookDamaged, {}};
}

}  // namespace

bool IsArchive(std::string_view bytes) {
  return bytes.starts_with("PK\x03\x04");
}

Archive::Archive(std::string_view bytes, std::size_t limit) : limit_(limit), left_(limit) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  zip_ = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
  zip_error_fini(&error);
  if (zip_) return;
  if (source) zip_source_free(source);
  FailDamaged();
}

Archive::~Archive() {
  zip_discard(zip_);
}

std::optional<std::string> Archive::File(const std::string& name) {
  const zip_int64_t index = zip_name_locate(zip_, name.c_str(), ZIP_FL_NOCASE);
  if (index < 0) return std::nullopt;
  const std::unique_ptr<zip_file_t, CloseFile> file(
      zip_fopen_index(zip_, static_cast<zip_uint64_t>(index), 0));
  if (!file) FailDamaged();
  // What the archive says of a file's size need not be true.
  std::string bytes;
  std::vector<char> buffer(1 << 16);
  for (;;) {
    const zip_int64_t got = zip_fread(file.get(), buffer.data(), buffer.size());
    if (got < 0) FailDamaged();
    if (got == 0) return bytes;
    const auto count = static_cast<std::size_t>(got);
    if (count > left_) throw TableFault{TextId::WorkbookTooLarge, {MegabytesText(limit_)}};
    left_ -= count;
    bytes.append(buffer.data(), count);
  }
}

}  // namespace velmora

// The files packed in a ZIP archive.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct zip;

namespace velmora {

/// Whether the bytes begin as an archive does.
bool IsArchive(std::string_view bytes);

class Archive {
 public:
  /// `bytes` must outlive it; of its files no more than `limit` bytes together are unpacked. Throws
  /// a `TableFault` where the archive is damaged.
  Archive(std::string_view bytes, std::size_t limit);
  ~Archive();
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  /// The file with this name, small and capital letters alike; nothing where there is none. Throws
  /// a `TableFault` where it is damaged or too large.
  std::optional<std::string> File(const std::string& name);

 private:
  struct zip* zip_;
  std::size_t limit_;
  std::size_t left_;  // of the limit
};

}  // namespace velmora

// A folder for one test's files, and values to fill them with.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace velmora {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmora-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path_); }
  TemporaryFolder(const TemporaryFolder&) = delete;

  std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  /// How many entries it has, the hidden ones too.
  auto Entries() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }

 private:
  std::filesystem::path path_;
};

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Any finite double at all, or one that has its own trouble as text.
inline double RandomValue(std::mt19937_64& random) {
  constexpr std::array kUsual = {1e-300, 0.1, -0.0001, 123456789.123, 0.0, 1e15, 5e-324};
  const auto bits = std::bit_cast<double>(random());
  return random() % 2 == 0 && std::isfinite(bits) ? bits : kUsual[random() % kUsual.size()];
}

}  // namespace velmora

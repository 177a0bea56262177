#include "cli/Provenance.h"

#include <nettle/sha2.h>

#include <array>

#include "kinetics/LaneMarches.h"

namespace velmora::cli {

std::string Sha256Of(std::string_view bytes) {
  sha256_ctx context;
  sha256_init(&context);
  sha256_update(&context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
  std::array<std::uint8_t, SHA256_DIGEST_SIZE> sum{};
  sha256_digest(&context, sum.size(), sum.data());
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string hex;
  for (const std::uint8_t byte : sum) {
    hex += kDigits[byte >> 4];
    hex += kDigits[byte & 15];
  }
  return hex;
}

std::size_t VectorWidth() {
  const LaneMarches* const marches = LaneMarchesHere();
  return marches ? marches->width : 1;
}

ReadFile ReadFileOf(const std::string& path, std::string_view bytes) {
  return {path, bytes.size(), Sha256Of(bytes)};
}

}  // namespace velmora::cli

// What a result was made from and with.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "estimation/EstimationSettings.h"

namespace velmora::cli {

struct ReadFile {
  std::string path;  // as given
  std::size_t bytes = 0;
  std::string sha256;  // in hex
};

/// The SHA-256 sum (FIPS 180-4) in hex.
std::string Sha256Of(std::string_view bytes);

ReadFile ReadFileOf(const std::string& path, std::string_view bytes);

/// How many doubles a vector of the simulations holds on this processor; 1 where they use none.
std::size_t VectorWidth();

/// What a command was asked and given; with its result it tells how to get it again.
struct Provenance {
  using Clock = std::chrono::steady_clock;

  std::vector<std::string> command;  // the command line as given
  std::vector<ReadFile> files;
  std::string model = {};                           // empty where there are more, or none
  std::optional<EstimationSettings> settings = {};  // of a search by ED
  std::optional<std::int32_t> seed = {};            // of any search
  unsigned threads = 1;
  std::size_t vectorWidth = VectorWidth();
  std::optional<Clock::time_point> start = Clock::now();  // nothing: the time is not to be told
};

}  // namespace velmora::cli

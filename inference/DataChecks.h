// What measured experiments look like to an experienced eye: values that no batch has, or that a
// slip of the pen or of the unit may have made.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "data/Experiment.h"
#include "language/Texts.h"

namespace velmora {

/// What is remarked, and the values that go with it, concentrations in g/L and times in h. The
/// texts from `TextId::FallingCells` on stand in this order.
enum class RemarkKind : std::uint8_t {
  FallingCells,         // from, to
  RisingSubstrate,      // from, to
  ProductBeforeGrowth,  // product formed, cells formed
  YieldTooHigh,         // cells and product formed, substrate used
  FirstSampleLate,      // its time
  TimesUnsorted,        // the row's time, that of the row before
  FinalTimeEarly,       // the final time, that of the last sample
  FarOff,               // the value, the nearest that its neighbours let expect
  LooksLikePercent,     // the highest value
  TooConcentrated,      // the value
  LooksLikeMinutes,     // the shortest doubling time
  LooksLikeDays,        // the shortest doubling time
  NegativeTime,         // the time
  NegativeValue,        // the concentration
  NoDuration,           // the final time
};

/// One remark. It changes nothing and need not be a fault.
struct Remark {
  RemarkKind kind;
  int row = 0;                // of the experiment, counted from 1
  std::string_view variable;  // "Cx", "Cs", "Cp" or "t"
  std::vector<double> values;
  int place = 0;            // of the experiment, counted from 1
  std::int16_t number = 0;  // of the experiment
};

/// The remarks on all experiments, in their order.
std::vector<Remark> CheckData(std::span<const Experiment> experiments);

/// Of these remarks those on values that no measurement gives and no simulation can follow:
/// negative times and concentrations, a final time that is not positive or before the last sample.
std::vector<Remark> CheckPossible(std::span<const Experiment> experiments);

/// The remark on one line, UTF-8, its numbers to four digits.
std::string Worded(const Remark& remark, Language language);

}  // namespace velmora

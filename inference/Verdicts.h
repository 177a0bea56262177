// What the data can tell: of each fitted parameter, and of the fit as a whole.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "estimation/Deviations.h"
#include "estimation/SearchResult.h"
#include "inference/ActingSamples.h"
#include "inference/Randomness.h"

namespace velmora {

/// Why a parameter is not determined by itself, the plainest reason first.
enum class FindingKind : std::uint8_t {
  AtLowerBound,   // value: the bound
  AtUpperBound,   // value: the bound
  OpenBelow,      // value: the lower bound, with which the others fit the data about as well
  OpenAbove,      // value: the upper bound
  Together,       // value: the correlation with `other`
  NotAlone,       // the residuals do not tell it from others at all
  NoData,         // no sample where it acts; `where` says which is missing
  WideDeviation,  // the stated deviation is larger than the value
};

struct Finding {
  FindingKind kind;
  double value = 0;
  At other = At::muMax;
  MissingSample where = MissingSample::LowCs;
};

/// Determined where nothing was found against it.
struct ParameterVerdict {
  std::vector<Finding> findings;  // in the order of their kinds

  bool Determined() const { return findings.empty(); }
};

/// The verdicts on all parameters of a fit, and what was met on the way.
struct ParameterVerdicts {
  std::vector<ParameterVerdict> of;   // in the order of the problem's variables
  std::optional<double> betterScore;  // clearly below that of the optimum, which is then none

  std::size_t CountDetermined() const;
};

/// Judges the parameters at `best`, the optimum, as long as the problem's variables. A side is open
/// where the parameter held at its bound and the others fitted again give a score within the 95 %
/// threshold of the likelihood profile (Bates and Watts 1988). Correlations are those of the
/// linearisation, or of wider differences where these are the stronger ones. Samples are those that
/// are scored. `deviations` are the stated ones; empty where there are none.
ParameterVerdicts JudgeParameters(const FitProblem& problem, std::span<const double> best,
                                  std::span<const double> deviations);

/// What a fit as a whole is to be called, the gravest first.
enum class RunKind : std::uint8_t {
  Unfinished,      // the search was stopped, or ended by a fault or at a limit
  NotAtMinimum,    // a better score was met beside it
  StartsDisagree,  // too few of its starts came to the same optimum
  NotRandom,       // residuals that follow a pattern
  Sound,
};

struct FitVerdict {
  RunKind kind = RunKind::Sound;
  std::optional<double> betterScore;
  int starts = 0, agreeing = 0;  // 0 starts: the method makes none
  std::vector<Trend> trends;
  std::optional<WorstPoint> worst;
  ParameterVerdicts parameters;
};

/// Whether a method makes starts, but so few came to one optimum that another seed may find
/// another.
bool FewAgree(int agreeing, int starts);

/// Judges the best values of a search that has a result.
FitVerdict JudgeFit(const FitProblem& problem, const SearchResult& result,
                    const Deviations& deviations);

/// "determined", "at its lower bound", ...: of the first finding.
std::string_view NameOf(const ParameterVerdict& verdict);
std::string_view NameOf(RunKind kind);

}  // namespace velmora

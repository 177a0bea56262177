// A first fit without knowing numbers: conditions, start values and bounds from the data, each with
// its reason.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "cultivation/CultivationForm.h"
#include "data/Experiment.h"
#include "estimation/FitProblem.h"
#include "kinetics/Modelos.h"
#include "language/Texts.h"

namespace velmora {

/// Why something is proposed: a text and the numbers that fill its {1}, {2}, ...
struct Reason {
  TextId text;
  std::vector<double> numbers;
};

/// The reason on one line, UTF-8, its numbers to four digits.
std::string Worded(const Reason& reason, Language language);

/// A value of the conditions.
struct ProposedValue {
  At position;
  double value = 0;
  Reason reason;
  int place = 0;  // of its experiment, counted from 1; 0: of all
};

/// A parameter to fit.
struct ProposedRange {
  FitVariable variable;  // 0 < lower < start < upper
  Reason reason;
};

/// The production kinetics of a first fit: with growth, or none where no product is measured.
Production ProposeProduction(std::span<const Experiment> experiments);

/// The conditions of `experiments`, by place, then those of all. Initial values are those of the
/// earliest sample, the final time is that of the latest. Yields are slopes of regressions through
/// the origin over all experiments together, of the changes since each experiment's first sample;
/// samples from where cells begin to fall are left out. Where product goes with growth, and the
/// slope of one experiment lies clearly off, each gets yields of its own. Stoichiometric yields,
/// which time courses do not tell apart, weigh cells and product alike. What the data do not tell
/// is missing.
std::vector<ProposedValue> ProposeConditions(std::span<const Experiment> experiments,
                                             Production production, Yields yields);

/// A start and bounds for every parameter of `model`, in the order of `kFittable`. Where a variable
/// is 0 throughout, the parameters that act on it are missing.
std::vector<ProposedRange> ProposeRanges(std::span<const Experiment> experiments,
                                         const Model& model);

/// What is fitted: the table of `ranges`.
std::vector<FitVariable> FittedOf(std::span<const ProposedRange> ranges);

/// Puts the values for the experiment at `place` into its form.
void PutInto(CultivationForm& form, std::span<const ProposedValue> values, int place,
             char separator);
/// Puts a start into its box and, unless the method is "Manual", ticks its row with the bounds.
void PutInto(CultivationForm& form, const FitVariable& variable, char separator);

}  // namespace velmora

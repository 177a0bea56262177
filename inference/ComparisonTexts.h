// A comparison of models in words and cells, as the command line and the report show it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "estimation/ResultTexts.h"
#include "inference/Comparison.h"

namespace velmora {

/// How many models are compared, and by what.
std::string ComparisonHeading(const Comparison& comparison, Language language);

/// One row of cells for each model with a rank, the best first, below a row of headings: model, D
/// (fitted parameters), SSE (sum of squared errors), AICc, its difference to the best, Akaike
/// weight, R² of Cx, Cs and Cp, starts that agree, parameters that are determined. In the digits
/// by which models compare, or in all of them.
std::vector<std::vector<std::string>> ComparisonCells(const Comparison& comparison, TextStyle style,
                                                      bool allDigits = false);

/// Why a model has no rank, on one line.
std::string WhyNotRanked(const ComparedModel& compared, std::span<const Experiment> experiments,
                         Language language);

/// What is to be said beside the cells, a line each: models that the data do not tell apart, those
/// of the best whose starts disagree, an infinite AICc, models without a rank.
std::vector<std::string> ComparisonRemarks(const Comparison& comparison,
                                           std::span<const Experiment> experiments,
                                           TextStyle style);

/// The best model's name, equation and parameters, a line each, these in the digits that their
/// deviations leave certain or in all of them; nothing where no AICc is finite.
std::vector<std::string> BestModelLines(const Comparison& comparison, TextStyle style,
                                        bool allDigits = false);

}  // namespace velmora

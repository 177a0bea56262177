// Whether the residuals of a fit look like chance.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "estimation/Objective.h"

namespace velmora {

/// The probability that `above` positive and `below` negative signs in a random order make at most
/// `runs` runs of equal signs (Wald and Wolfowitz 1940). Where all signs are equal: that of one
/// side, 2^(1 - n).
double RunsProbability(int above, int below, int runs);

/// Residuals that keep their sign for too long: the model bends where the data do not.
struct Trend {
  int place = 0;              // of the experiment, counted from 1
  std::string_view variable;  // "Cx", "Cs" or "Cp"
  int runs = 0;
  int points = 0;
  double probability = 0;
};

/// The scored point that is farthest from the model, by its normalised residual.
struct WorstPoint {
  int place = 0;              // of the experiment, counted from 1
  std::string_view variable;  // "Cx", "Cs" or "Cp"
  double time = 0;            // h
  double measured = 0;        // g/L
  double simulated = 0;       // g/L
  double multiple = 0;        // of the root mean square of all scored residuals
};

struct ResidualPattern {
  std::vector<Trend> trends;
  std::optional<WorstPoint> worst;  // nothing where all residuals are 0
};

/// The residuals of `fit`, in the problem's order of time within each experiment and variable;
/// residuals of 0 count in no run. Trends are those of a probability below 5 % by the number of
/// tests that can come to so little (Bonferroni's correction as sharpened by Tarone 1990).
ResidualPattern PatternOf(const FitProblem& problem, const SimulatedFit& fit);

}  // namespace velmora

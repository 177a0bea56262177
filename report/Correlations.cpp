#include "report/Correlations.h"

#include "inference/Linearisation.h"

namespace velmora {

Correlations CorrelationsAt(const FitProblem& problem, std::span<const double> best) {
  const Linearisation linear = Linearise(problem, best);
  Correlations found;
  if (!linear.Determined()) return found;
  for (const std::size_t j : linear.free) found.parameters.push_back(problem.variables[j].position);
  for (std::size_t row = 0; row < linear.free.size(); ++row)
    for (std::size_t column = 0; column < linear.free.size(); ++column)
      found.values.push_back(row == column ? 1 : linear.Correlation(row, column));
  return found;
}

}  // namespace velmora

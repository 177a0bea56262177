// The places at which descents begin: over the whole box, and from the best ones found.
#pragma once

#include <vector>

#include "estimation/Descent.h"
#include "estimation/FitProblem.h"
#include "estimation/Landscape.h"
#include "estimation/UniformGenerator.h"

namespace velmora {

class Hops {
 public:
  /// Draws from `random` and scores in `landscape`, which must outlive it.
  Hops(const FitProblem& problem, Landscape& landscape, UniformGenerator& random);

  /// `count` places of a Latin hypercube (McKay, Beckman and Conover 1979); half of the limits Cx*
  /// and Cp* lie where the data can tell of them.
  std::vector<Place> Hypercube(int count);

  /// A place beside `base`, which has derivatives: along its valley, across it with one or two
  /// components set anew, or the best of some anywhere. It may lie outside the box.
  Place From(const Descent& base);

 private:
  double Between(double least, double most) { return least + random_.Draw() * (most - least); }
  double LimitComponent(Eigen::Index j, double least, double most);
  Place AlongValley(const Descent& base);
  Place AcrossValley(const Descent& base);
  std::vector<Eigen::Index> OneOrTwo();
  double FreshComponent(Eigen::Index j, Place& place);
  void LowerExponentOf(At limit, Place& place);
  Place BestOfSome();

  Landscape& landscape_;
  UniformGenerator& random_;
  const double highestCx_;  // g/L, measured
  const double highestCp_;
};

}  // namespace velmora

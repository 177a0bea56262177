// Searches without derivatives, for a score with kinks and jumps.
#pragma once

#include <Eigen/Core>

#include "estimation/Landscape.h"
#include "estimation/UniformGenerator.h"

namespace velmora {

/// The best place found so far, and its score.
struct Found {
  Place at;
  double score = 0;
};

/// Covariance-matrix adaptation (Hansen and Ostermeier 2001, in the form of Hansen 2016) from
/// `best` with the first covariance `shape`, populations of `population` and at most `evaluations`;
/// ends sooner where 40 evaluations for each component gain next to nothing. Whatever leaves the
/// box is put on its edge.
void AdaptCovariance(Found& best, const Eigen::MatrixXd& shape, int population, int evaluations,
                     Landscape& landscape, UniformGenerator& random);

/// The simplex method of Nelder and Mead (1965) from `best`, with edges along the columns of
/// `edges` and at most `evaluations`.
void WalkSimplex(Found& best, const Eigen::MatrixXd& edges, int evaluations, Landscape& landscape);

}  // namespace velmora

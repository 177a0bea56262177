// Descents by the method of Levenberg and Marquardt, inside the box of the bounds. Many go on side
// by side, since many places are scored together in little more time than one; each goes as it
// would alone.
#pragma once

#include <Eigen/Core>
#include <optional>
#include <span>
#include <vector>

#include "estimation/Landscape.h"

namespace velmora {

/// Measured values other than those of the landscape, to which a descent may fit: its residuals are
/// `factor` times the sum of the landscape's and `shift`, value by value.
struct OtherData {
  Eigen::VectorXd shift;
  Eigen::VectorXd factor;
};

/// Where a descent stands. It can be taken up again at any time.
struct Descent {
  Place at;
  std::optional<Eigen::Index> held;  // the component that stays where it is
  double score = 0;
  Eigen::VectorXd residuals;
  Eigen::MatrixXd jacobian;  // J, n x D: by differences, or brought up to date by a step
  Eigen::MatrixXd normal;    // J'J
  Eigen::VectorXd gradient;  // J'r
  int updates = 0;           // of the derivatives, since they were taken by differences
  double damping = 1e-3;
  double growth = 2;  // of the damping after the next failure
  int quiet = 0;      // iterations in a row that gained next to nothing
  bool ended = false;
  bool blocked = false;                 // a step promised more: the score has a kink here
  const OtherData* measured = nullptr;  // must outlive the descent; null: the landscape's own
};

/// Begins at each of `places`, which are scored.
std::vector<Descent> BeginDescents(const std::vector<Place>& places, Landscape& landscape);
Descent BeginDescent(const Place& place, Landscape& landscape);
/// Begins with other data where `descent` stands, whose residuals are the landscape's.
Descent BeginWith(const OtherData& measured, const Descent& descent);

/// Each goes on for at most `iterations`. Minimises the sum of squared residuals (Levenberg 1944,
/// Marquardt 1963) with derivatives by forward differences, the damping controlled by the gain
/// ratio (Nielsen 1999), the diagonal of J'J as scale, and components that would leave the box held
/// at its edge. A place where a simulation faults counts as infinitely high.
void Descend(std::span<Descent> descents, int iterations, Landscape& landscape);
void Descend(Descent& descent, int iterations, Landscape& landscape);

/// The derivatives at the descent's place: sets `normal` and `gradient`.
void Differentiate(Descent& descent, Landscape& landscape);

/// The covariance of the places whose score is about (1 + spread) times that of the descent's
/// place, by its derivatives; at most 0.3 of a component wide.
Eigen::MatrixXd ShapeAround(const Descent& descent, double spread);

/// Whether the score rises beside the descent's place by more than its curvature explains: the
/// place stands at the edge of a jump, or in a cusp.
bool HasKink(const Descent& descent, Landscape& landscape);

}  // namespace velmora

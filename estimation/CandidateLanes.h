// Candidates scored side by side, one in each lane of the processor's vectors.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "estimation/FitProblem.h"
#include "estimation/LaneResiduals.h"
#include "estimation/NormalisedExperiment.h"
#include "kinetics/LaneMarches.h"

namespace velmora {

/// The curves of all experiments for a block of candidates, and their squared errors. It does not
/// change once it is made.
class CandidateLanes {
 public:
  /// What a block is computed in, taken once.
  class Memory {
   private:
    friend class CandidateLanes;
    struct alignas(64) Line {
      double of[8];
    };
    double* Take(std::vector<Line>& lines, std::size_t values);
    std::vector<Line> parameters_, curves_, reach_, sums_, residuals_;
  };

  CandidateLanes(const std::vector<NormalisedExperiment>& experiments,
                 std::vector<FitVariable> variables);

  /// Whether every experiment can be marched in lanes here.
  bool Serve() const { return marches_ != nullptr && !experiments_.empty(); }
  /// How many candidates are best scored together.
  std::size_t Together() const { return marches_->together; }
  /// Of how many candidates a block is best made where there are `left`.
  std::size_t BlockOf(std::size_t left) const;

  /// Scores a block, as many candidates as `scores` is long, each bit for bit as alone. A score is
  /// not finite where the lanes could not tell: that candidate is to be scored alone. Where
  /// `residuals` is not empty, candidate i's become its row i.
  void Score(std::span<const double> candidates, std::span<double> scores,
             std::span<double> residuals, Memory& memory) const;

 private:
  struct LaneExperiment {
    std::size_t kernel;
    KineticParameters parameters;
    std::vector<ComparedPoint> points;
    PerVariable<double> scale;
  };

  bool Add(const NormalisedExperiment& experiment);
  bool IsFit(std::span<const double> candidate) const;
  void Spread(const LaneExperiment& experiment, std::span<const double> candidates,
              std::size_t lanes, double* parameters) const;

  const std::vector<FitVariable> variables_;
  const LaneMarches* marches_;
  LaneResidualsOfWidth compare_{};
  std::vector<LaneExperiment> experiments_;
};

}  // namespace velmora

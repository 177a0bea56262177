// Candidates scored side by side: each lane of the processor's vectors holds one candidate in one
// experiment.
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
    std::vector<Line> parameters_, curves_, reach_, residuals_;
  };

  CandidateLanes(const std::vector<NormalisedExperiment>& experiments,
                 std::vector<FitVariable> variables);

  /// Whether every experiment can be marched in lanes here.
  bool Serve() const { return marches_ != nullptr && !experiments_.empty(); }
  /// How many lanes go together.
  std::size_t Together() const { return marches_->together; }
  /// The fewest candidates that fill about all lanes that they take.
  std::size_t Filling() const { return filling_; }

  /// Scores a block, as many candidates as `scores` is long and at most `Together()`, each bit for
  /// bit as alone. A score is not finite where the lanes could not tell: that candidate is to be
  /// scored alone. Where `residuals` is not empty, candidate i's become its row i.
  void Score(std::span<const double> candidates, std::span<double> scores,
             std::span<double> residuals, Memory& memory) const;

 private:
  struct LaneExperiment {
    std::size_t kernel;
    KineticParameters parameters;
    std::vector<ComparedPoint> points;
    PerVariable<KnownDivisor> scale;
    std::size_t residual;  // the first of its residuals in a row
  };

  /// A block on its way: its candidates, and what comes of them.
  struct Block {
    std::span<const double> candidates;
    std::span<double> scores;
    std::span<double> residuals;
    Memory& memory;
  };

  /// Neighbouring experiments of one model. Their items, one for each candidate in each of them,
  /// are numbered experiment by experiment.
  struct Run {
    std::size_t first, count;
  };

  bool Add(const NormalisedExperiment& experiment);
  void FindFilling();
  bool IsFit(std::span<const double> candidate) const;
  Run RunFrom(std::size_t first) const;
  void March(const Run& run, std::size_t item, std::size_t items, const Block& block) const;
  void Spread(const Run& run, std::size_t item, std::size_t items, std::size_t lanes,
              const Block& block, double* parameters) const;
  void Compare(const LaneExperiment& experiment, const double* curves, std::size_t lanes,
               const double* reach, std::size_t candidate, std::size_t count,
               const Block& block) const;

  const std::vector<FitVariable> variables_;
  const LaneMarches* marches_;
  LaneResiduals compare_{};
  std::vector<LaneExperiment> experiments_;
  std::size_t filling_ = 1;
};

}  // namespace velmora

// The score of a candidate: the sum of squared errors between model and normalised data.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "estimation/CandidateLanes.h"
#include "estimation/FitProblem.h"
#include "estimation/NormalisedExperiment.h"
#include "estimation/Workers.h"
#include "kinetics/ModelCurves.h"
#include "kinetics/Runge_Kutta.h"

namespace velmora {

/// A candidate's score, or the fault for which it has none.
struct CandidateScore {
  double score = 0;
  std::optional<ArithmeticFault> fault;
  std::int32_t rateEvaluations = 0;  // that it took
};

/// What a candidate comes to in one experiment.
struct SimulatedExperiment {
  ModelCurve curve;
  MeasuredSeries simulated;   // at the measured times, g/L
  PerVariable<double> share;  // of the score
};

/// What a candidate comes to in all experiments, by place.
struct SimulatedFit {
  double score = 0;
  std::vector<SimulatedExperiment> experiments;

  /// The curves of all experiments, by place; there are at most nine.
  ModelCurves Curves() const;
};

/// Scores candidates against all experiments at once. It does not change once it is made.
class Objective {
 public:
  /// The memory in which candidates are scored, taken once, the threads that do it, and the count
  /// of the rate evaluations made in it: one past 2,147,483,647 is a fault of term
  /// `EvaluationCounter`.
  class Workspace {
   public:
    /// Begins with a count of `evaluations`.
    explicit Workspace(std::int32_t evaluations = 0, unsigned threads = 1);

    std::int32_t Evaluations() const { return evaluations_; }
    void SetEvaluations(std::int32_t evaluations) { evaluations_ = evaluations; }
    unsigned Threads() const { return workers_->Count(); }

   private:
    friend class Objective;
    struct OfThread {
      CandidateLanes::Memory lanes;
      Runge_Kutta integrator;
      KineticParameters parameters;
      ModelCurve curve;
    };
    std::int32_t evaluations_;
    std::vector<OfThread> threads_;
    std::unique_ptr<Workers> workers_;
  };

  /// Copies and normalises the measured data. The problem's rows must be as many as its
  /// experiments.
  explicit Objective(const FitProblem& problem);

  /// The largest value, or 0 where every value is 0 or negative.
  static double NormalisationScale(std::span<const double> values);

  /// How many variables have no positive value. Each is scored with scale 1, and the user is told
  /// so once for each.
  int UnscaledVariables() const { return unscaledVariables_; }
  /// The count of measured values of the three variables at all points.
  int Observations() const;
  /// The count of those that are scored: all but the values of each experiment's last point.
  std::size_t Scored() const;

  /// Scores as many candidates as `scores` is long; candidate i is row i of `candidates`, with one
  /// component for each fitted parameter, and is scored as it stands. A fault ends its own
  /// candidate alone and names the experiment's place. Many are scored side by side, each to the
  /// same bits as alone. Allocates nothing once the workspace has served.
  void Score(std::span<const double> candidates, std::span<CandidateScore> scores,
             Workspace& workspace) const {
    Score(candidates, scores, {}, workspace);
  }
  /// As above; row i of `residuals`, `Scored()` long, becomes the normalised residuals, measured
  /// minus model, of candidate i: experiment by experiment and point by point, Cx, Cs, Cp.
  void Score(std::span<const double> candidates, std::span<CandidateScore> scores,
             std::span<double> residuals, Workspace& workspace) const;

  /// How many candidates are best scored in one call: those that take next to no more time than
  /// fewer would, or else as many as all lanes hold.
  std::size_t Filling(const Workspace& workspace) const {
    return (lanes_.Serve() ? lanes_.Filling() : 1) * workspace.Threads();
  }
  std::size_t Together(const Workspace& workspace) const {
    return (lanes_.Serve() ? lanes_.Together() : 1) * workspace.Threads();
  }
  /// Whether the counter of rate evaluations holds those of `candidates` more.
  bool Counts(std::size_t candidates, const Workspace& workspace) const;

  /// Simulates every experiment with candidate `x`; throws an `ArithmeticFault` with the
  /// experiment's place. An empty `x` leaves the problem's rows as they are. Counts its own rate
  /// evaluations.
  SimulatedFit Simulate(std::span<const double> x) const;

 private:
  static std::vector<NormalisedExperiment> Normalised(const FitProblem& problem, int& unscaled);
  CandidateScore ScoreAlone(std::span<const double> x, std::span<double> residuals,
                            std::int32_t evaluations, Workspace::OfThread& memory) const;
  void ScoreInTurn(std::span<const double> candidates, std::span<CandidateScore> scores,
                   std::span<double> residuals, Workspace& workspace) const;
  void ScoreBlock(std::span<const double> candidates, std::span<CandidateScore> scores,
                  std::span<double> residuals, Workspace::OfThread& memory) const;
  std::size_t BlockSize(std::size_t candidates, unsigned threads) const;
  std::int32_t RateEvaluations() const;
  void Integrate(std::span<const double> x, const NormalisedExperiment& experiment,
                 Workspace::OfThread& memory) const;
  template <class Visitor>
  double SumOverExperiments(std::span<const double> x, Workspace::OfThread& memory,
                            Visitor&& visitor) const;

  int unscaledVariables_ = 0;
  std::vector<NormalisedExperiment> experiments_;
  std::vector<FitVariable> variables_;
  CandidateLanes lanes_;
};

}  // namespace velmora

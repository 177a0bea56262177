// The best of the places at which descents stand, and how many of these reached the best score.
#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "estimation/Descent.h"

namespace velmora {

class Elite {
 public:
  bool Empty() const { return members_.empty(); }
  const Descent& Best() const { return members_.front(); }
  /// Infinite where there is none.
  double BestScore() const {
    return Empty() ? std::numeric_limits<double>::infinity() : Best().score;
  }
  /// The members whose score is at most `factor` times the best: how many stand first.
  std::size_t CountWithin(double factor) const;
  const Descent& Member(std::size_t i) const { return members_[i]; }

  /// Takes the descent in, unless a better one stands within 0.001 of every component, or twelve
  /// better ones elsewhere. Whether the best score fell. A descent with an infinite score is passed
  /// over; a best one without derivatives gets them.
  bool Admit(const Descent& descent, Landscape& landscape);

  /// Notes that a descent ended at `score`.
  void NoteEnd(double score) { ends_.push_back(score); }
  std::size_t Ends() const { return ends_.size(); }
  /// How many ends agree with the best score.
  int Agreeing(const Landscape& landscape) const;
  /// How many ends in all came within 1 % of the best score.
  int Reached(const Landscape& landscape) const;

 private:
  bool Agrees(double score, const Landscape& landscape) const;

  std::vector<Descent> members_;  // best first
  std::vector<double> ends_;
};

}  // namespace velmora

#include "estimation/Elite.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr std::size_t kMost = 12;
constexpr double kSamePlace = 1e-3;     // of a component
constexpr double kSameScore = 1e-4;     // relative
constexpr double kReachedScore = 1e-2;  // relative

}  // namespace

std::size_t Elite::CountWithin(double factor) const {
  return static_cast<std::size_t>(
      std::count_if(members_.begin(), members_.end(),
                    [&](const Descent& member) { return member.score <= factor * BestScore(); }));
}

bool Elite::Admit(const Descent& descent, Landscape& landscape) {
  if (!std::isfinite(descent.score)) return false;
  const double before = BestScore();
  const auto same = std::find_if(members_.begin(), members_.end(), [&](const Descent& member) {
    return (member.at - descent.at).cwiseAbs().maxCoeff() < kSamePlace;
  });
  if (same == members_.end())
    members_.push_back(descent);
  else if (descent.score < same->score)
    *same = descent;
  std::stable_sort(members_.begin(), members_.end(),
                   [](const Descent& a, const Descent& b) { return a.score < b.score; });
  if (members_.size() > kMost) members_.pop_back();
  if (Best().normal.size() == 0) Differentiate(members_.front(), landscape);
  return BestScore() < before;
}

bool Elite::Agrees(double score, const Landscape& landscape) const {
  return score <= (1 + kSameScore) * BestScore() || landscape.IsPerfect(score);
}

int Elite::Agreeing(const Landscape& landscape) const {
  return static_cast<int>(std::count_if(ends_.begin(), ends_.end(),
                                        [&](double score) { return Agrees(score, landscape); }));
}

int Elite::Reached(const Landscape& landscape) const {
  return static_cast<int>(std::count_if(ends_.begin(), ends_.end(), [&](double score) {
    return score <= (1 + kReachedScore) * BestScore() || landscape.IsPerfect(score);
  }));
}

}  // namespace velmora

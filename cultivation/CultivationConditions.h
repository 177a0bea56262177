// The cultivation conditions of all experiments, with the fit options and the fitted parameters,
// and what they must be for a run.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/Experiment.h"
#include "estimation/FitProblem.h"
#include "kinetics/KineticParameters.h"
#include "language/Message.h"

namespace velmora {

/// At most this many experiments take part in a cultivation.
inline constexpr int kMostExperiments = 9;
/// At most this many parameters are fitted.
inline constexpr int kMostFitted = 10;

/// The five option texts of an experiment. All experiments of a fit must agree in all of them.
struct OptionTexts {
  std::string method;      // "Manual", "ED" or "LM"
  std::string dataSet;     // the ticked variables, "Cx Cs Cp"; no routine reads it
  std::string production;  // "PAC", "PPAC" or "PNAC"
  std::string model;       // the growth model's name
  std::string fitted;      // the fitted parameters' names, "MiMax Ks"

  /// Option text 1..5 in the order above.
  std::string& operator[](int position);
  const std::string& operator[](int position) const;

  friend bool operator==(const OptionTexts&, const OptionTexts&) = default;
};
inline constexpr int kOptionTexts = 5;
enum class OptionPosition { Method = 1, DataSet, Production, Model, Fitted };

/// What is stored for the experiment at one place of the experiment list.
struct ConditionsRecord {
  bool saved = false;
  std::int16_t number = 0;  // the experiment's number
  ConditionsRow row;
  OptionTexts options;
  friend bool operator==(const ConditionsRecord&, const ConditionsRecord&) = default;
};

/// The conditions list: one record for each place 1..9, and one fitted-parameter table for all.
class CultivationConditions {
 public:
  /// The record at `place`; throws std::out_of_range for a place outside 1..9.
  ConditionsRecord& At(int place);
  const ConditionsRecord& At(int place) const;

  /// How many records are saved.
  int SavedCount() const;
  /// Clears the record at `place` (`LimpaVet`), or all of them with the fitted-parameter table.
  void LimpaVet(int place);
  void Clear();
  /// Removes the record at `place`; the records of later places move down by one.
  void Remove(int place);

  /// The fitted-parameter table: at most kMostFitted rows, in table order, each with the value from
  /// which the search starts.
  std::vector<FitVariable> fitted;

  friend bool operator==(const CultivationConditions&, const CultivationConditions&) = default;

 private:
  std::array<ConditionsRecord, kMostExperiments> records_;
};

/// What a run, and a file of the conditions, is refused for where not as many conditions are saved
/// as there are experiments; it names the numbers of the experiments that lack theirs.
std::optional<Message> RefuseMissing(const std::vector<Experiment>& experiments,
                                     const CultivationConditions& conditions);

/// What a run is refused for, in order: no experiment, missing conditions, experiments saved with
/// different options.
std::optional<Message> RefuseRun(const std::vector<Experiment>& experiments,
                                 const CultivationConditions& conditions);

}  // namespace velmora

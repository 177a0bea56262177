// The program-wide state, one plain object that main makes and hands on by reference. What the user
// does to it are the operations of session/Operations.h.
#pragma once

#include <optional>
#include <string>

#include "cultivation/CultivationConditions.h"
#include "data/ExperimentLists.h"
#include "estimation/Deviations.h"
#include "estimation/EstimationSettings.h"
#include "estimation/SearchResult.h"
#include "kinetics/ModelCurves.h"
#include "language/Texts.h"

namespace velmora {

/// What a search came to. Without a result it has neither deviations nor curves.
struct SearchOutcome {
  FitProblem problem;
  SearchResult result;
  Deviations deviations;
  ModelCurves curves{};  // of the best vector
};

/// A search that had a result, with the experiments and conditions as they were.
struct FinishedRun {
  SearchOutcome outcome;
  ExperimentLists lists;
  CultivationConditions conditions;
};

struct Session {
  Language language = Language::Portuguese;
  char separator = '.';  // the locale's decimal separator, '.' or ','

  ExperimentLists lists;
  CultivationConditions conditions;
  EstimationSettings settings;
  std::string inputFile = "C:\\hougen.txt";  // no routine reads the two names
  std::string outputFile = "C:SAIDA.TXT";

  ModelCurves curves{};                // by place
  std::optional<FinishedRun> lastRun;  // the last search that had a result

  bool gridLines = true;
  std::string activeWindow;  // kExperimentsWindow or kCultivationWindow
  std::string clickedChart;  // "picCx", "picCs" or "picCp"

  /// Whether there is a curve at any place.
  bool CurvesPresent() const;
};

/// The work windows by the names of their controls.
inline constexpr const char* kExperimentsWindow = "frmMsFlexGrid";
inline constexpr const char* kCultivationWindow = "frmCultBatelada";

}  // namespace velmora

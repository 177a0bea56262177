// The program-wide state, one plain object that main makes and hands on by reference. What the user
// does to it are the operations of session/Operations.h.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "cultivation/CultivationConditions.h"
#include "cultivation/CultivationForm.h"
#include "data/ExperimentEntry.h"
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
  Method method{};       // by which it was searched
  EstimationSettings settings{};
  std::vector<std::string> files{};  // the names of those that held experiments and conditions
};

/// A search that had a result, with the experiments and conditions as they were.
struct FinishedRun {
  SearchOutcome outcome;
  ExperimentLists lists;
  CultivationConditions conditions;
};

/// The experiment that is being entered, as it stands in the boxes and the grid.
struct ExperimentDraft {
  ExperimentHeader header;
  std::vector<GridRow> rows;
  int shown = 0;        // the place whose experiment it was; 0 for a new one
  bool edited = false;  // by the user, since it was shown

  /// Whether the user has entered anything.
  bool Unsaved() const;

  friend bool operator==(const ExperimentDraft&, const ExperimentDraft&) = default;
};

/// What stands in the cultivation window's boxes.
struct FormDraft {
  CultivationForm form;
  int place = 0;        // of the experiment that it belongs to; 0 for none
  bool edited = false;  // by the user, since it was stored
};

/// What files hold, by their names, as they were last read or written here.
struct KnownFiles {
  std::map<std::string, ExperimentLists> experiments;
  std::map<std::string, CultivationConditions> conditions;
};

struct Session {
  Language language = Language::Portuguese;
  char separator = '.';  // the locale's decimal separator, '.' or ','

  ExperimentLists lists;
  CultivationConditions conditions;
  ExperimentDraft draft;
  FormDraft formDraft;
  EstimationSettings settings;
  std::string inputFile = "C:\\hougen.txt";  // no routine reads the two names
  std::string outputFile = "C:SAIDA.TXT";

  std::string experimentsFile;  // last opened or written; empty where there was none
  std::string conditionsFile;
  KnownFiles files;

  ModelCurves curves{};                        // by place
  std::shared_ptr<const FinishedRun> lastRun;  // the last search that had a result

  bool gridLines = true;
  bool forPublication = false;  // charts are drawn to be published
  std::string activeWindow;     // kExperimentsWindow or kCultivationWindow
  std::string clickedChart;     // "picCx", "picCs" or "picCp"

  /// Whether something would be lost with the draft: what it holds is not the experiment shown.
  bool EntryUnsaved() const;
  /// Whether there is a curve at any place.
  bool CurvesPresent() const;
};

/// The work windows by the names of their controls.
inline constexpr const char* kExperimentsWindow = "frmMsFlexGrid";
inline constexpr const char* kCultivationWindow = "frmCultBatelada";

}  // namespace velmora

// The program-wide state, one plain object that main makes and hands on by reference, and the
// operations on it.
#pragma once

#include <optional>
#include <string>

#include "cultivation/CultivationConditions.h"
#include "data/ExperimentLists.h"
#include "estimation/EstimationSettings.h"
#include "kinetics/ModelCurves.h"
#include "language/Texts.h"

namespace velmora {

struct Session {
  Language language = Language::Portuguese;
  char separator = '.';  // the locale's decimal separator, '.' or ','

  ExperimentLists lists;
  CultivationConditions conditions;
  EstimationSettings settings;
  std::string inputFile = "C:\\hougen.txt";  // no routine reads the two names
  std::string outputFile = "C:SAIDA.TXT";

  ModelCurves curves;
  bool curvesPresent = false;

  bool gridLines = true;
  std::string activeWindow;  // "frmMsFlexGrid" or "frmCultBatelada"
  std::string clickedChart;  // "picCx", "picCs" or "picCp"
};

/// Removes the experiment at `place` with its conditions and curve; those of later places move down
/// by one. For a place that is none: the refusal to show, nothing changed.
std::optional<Message> DeleteExperiment(Session& session, int place);

/// Puts `lists` in place of the session's, whose conditions and curves go.
void ReplaceExperiments(Session& session, ExperimentLists lists);

}  // namespace velmora

// The program-wide state: one plain object, made by main and passed by reference.
#pragma once

#include <string>

#include "app/Texts.h"
#include "cultivation/CultivationConditions.h"
#include "data/ExperimentLists.h"
#include "estimation/EstimationSettings.h"
#include "kinetics/ModelCurves.h"

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

}  // namespace velmora

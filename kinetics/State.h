// The state of a batch cultivation at one time.
#pragma once

namespace velmora {

/// Concentrations of cells, substrate and product, g/L; also their changes over one step.
struct State {
  double Cx = 0;
  double Cs = 0;
  double Cp = 0;
};

/// The two indicators that hold for all four stages of a step: 1 or 0.
struct Indicators {
  double deathOn = 0;       // Cs is at or below CsAst1
  double productionOn = 0;  // Cs is at or below CsAst2
};

}  // namespace velmora

// The drawn icons of all windows' buttons.
#pragma once

#include <QIcon>
#include <QPixmap>
#include <cstdint>

namespace velmora {

/// What is drawn. The first group takes the desktop's colour of button texts, the second has an ink
/// of its own.
enum class Symbol : std::uint8_t {
  // Experiments and charts.
  NewSheet,
  Diskette,
  Eraser,
  GrowthCurve,
  Grid,
  Legend,
  Bin,
  NextStep,  // a white arrow: its button is filled
  Title,
  Range,
  Copy,
  Printer,
  Close,
  Publication,
  Logarithm,
  Residuals,
  WholeChart,
  Preview,
  // The cultivation window.
  Back,      // to the experiments window
  Previous,  // experiment
  Next,      // experiment
  Unlock,    // a choice that was fixed
  Confirm,   // the model: a green tick
  Save,      // the conditions
  Start,
  Stop,
  Clear,    // the results
  Initial,  // back to the initial values
  Forward,  // forward to the estimated values
  Report,
};

QIcon DrawnIcon(Symbol symbol);

/// A small mark beside a value that deserves a second look and is no fault.
QPixmap CalmMark();

}  // namespace velmora

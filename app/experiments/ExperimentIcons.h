// The drawings on the experiments window's buttons.
#pragma once

#include <QIcon>
#include <cstdint>

class QPalette;

namespace velmora {

enum class ExperimentAction : std::uint8_t {
  Insert,
  Save,
  Clear,
  ViewGraphs,
  GridLines,
  Legend,
  Delete,
  NextStep,
};

/// The drawing of an action in the colours of `palette`.
QIcon IconOf(ExperimentAction action, const QPalette& palette);

}  // namespace velmora

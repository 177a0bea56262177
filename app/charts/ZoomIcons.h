// The drawings on the zoom window's buttons.
#pragma once

#include <QIcon>
#include <cstdint>

class QPalette;

namespace velmora {

enum class ZoomAction : std::uint8_t { Title, Legend, GridLines, Range, Copy, Save, Print, Close };

/// The drawing of an action in the colours of `palette`; those that the experiments window has too
/// are its own.
QIcon IconOf(ZoomAction action, const QPalette& palette);

}  // namespace velmora

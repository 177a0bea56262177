// What is drawn, on the desktop's own colours: light, dark or of high contrast.
#pragma once

#include <QColor>
#include <QPalette>

class QStyle;

namespace velmora {

/// Whether this ground of the desktop is dark.
bool OnDark(QPalette::ColorRole ground = QPalette::Button);

/// `colour`, made for a light ground, as light as a dark one wants it.
QColor Readable(const QColor& colour, QPalette::ColorRole ground = QPalette::Button);

/// The desktop's style, with the edges of boxes and buttons also on a black ground, where the
/// style, which makes edges darker than the ground, has none.
QStyle* NewClearEdges();

}  // namespace velmora

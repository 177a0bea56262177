// A chart that leaves the program as a picture: for the clipboard, or a bitmap file.
#pragma once

#include <QByteArray>
#include <QImage>

class QWidget;

namespace velmora {

/// What the widget shows, with what lies on it, from its own content: as large as on the screen
/// times the display's scale.
QImage PictureOf(QWidget& widget);

/// Puts the picture on the clipboard, from which other programs take it as PNG or bitmap.
void CopyPicture(const QImage& picture);

/// The picture as a bitmap file.
QByteArray BitmapOf(const QImage& picture);

}  // namespace velmora

#include "app/charts/ChartOutput.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QPixmap>
#include <QWidget>

namespace velmora {

QImage PictureOf(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void CopyPicture(const QImage& picture) {
  QGuiApplication::clipboard()->setImage(picture);
}

QByteArray BitmapOf(const QImage& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "BMP");
  return bytes;
}

}  // namespace velmora

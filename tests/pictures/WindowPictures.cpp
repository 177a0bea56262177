// Draws the program's windows as they look with the molasses example fitted, in colours of few
// shades, so that the pictures are small.
// Use: window-pictures en|pt EXAMPLES FOLDER [WIDTH HEIGHT [dark|contrast]]
// The pictures are FOLDER/window-NAME-LANGUAGE.png; WIDTH and HEIGHT are those of the main window.
#include <QApplication>
#include <QDir>
#include <QFont>
#include <QPalette>
#include <cstdio>
#include <exception>

#include "app/widgets/Colours.h"
#include "help/GuidePictures.h"

namespace {

constexpr QSize kFrame(1280, 760);  // what a screen of 1280 x 800 leaves to a window

/// The palettes that people choose who do not want a light one.
QPalette PaletteOf(const QString& name) {
  if (name == QStringLiteral("dark")) return {QColor(0x3a, 0x3a, 0x3a), QColor(0x2d, 0x2d, 0x2d)};
  if (name == QStringLiteral("contrast"))
    return {Qt::white, Qt::black, Qt::white, Qt::darkGray, Qt::gray,
            Qt::white, Qt::white, Qt::black, Qt::black};
  return {};
}

QImage InFewShades(const QImage& picture) {
  constexpr QRgb kUpperHalves = 0xFFF0F0F0, kMiddle = 0x00080808;
  QImage shades = picture.convertToFormat(QImage::Format_RGB32);
  for (int y = 0; y < shades.height(); ++y) {
    auto* const line = reinterpret_cast<QRgb*>(shades.scanLine(y));
    for (int x = 0; x < shades.width(); ++x) line[x] = (line[x] & kUpperHalves) | kMiddle;
  }
  return shades;
}

int Draw(const QStringList& words) {
  constexpr int kSmallest = 0;  // as small as PNG can be
  const QSize size = words.size() < 6 ? kFrame : QSize(words[4].toInt(), words[5].toInt());
  const auto language =
      words[1] == QStringLiteral("en") ? velmora::Language::English : velmora::Language::Portuguese;
  const auto pictures = velmora::TakePictures(language, words[2], size);
  for (auto picture = pictures.begin(); picture != pictures.end(); ++picture) {
    const QString file = QStringLiteral("window-%1-%2.png").arg(picture.key(), words[1]);
    if (!InFewShades(picture.value()).save(QDir(words[3]).filePath(file), "PNG", kSmallest))
      return 3;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QStringList words = QApplication::arguments();
  if (words.size() < 4) return 2;
  QApplication::setStyle(velmora::NewClearEdges());
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
  QApplication::setCursorFlashTime(0);
  if (words.size() > 6) QApplication::setPalette(PaletteOf(words[6]));
  try {
    return Draw(words);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "window-pictures: %s\n", error.what());
    return 1;
  }
}

// Writes the legend's pictures, DIR/Imagens_Marcador/*.bmp and DIR/Imagens_Cores/*.bmp, and the
// program's icon in the sizes of a desktop, DIR/icons/hicolor/*/apps/velmora.png.
// Use: velmora-images DIR

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <cstdio>

#include "app/charts/Markers.h"
#include "app/shell/GrowthCurveView.h"
#include "data/Experiment.h"

namespace {

constexpr int kSize = 32;

QString Path(const QDir& folder, const char* name, std::string_view file) {
  folder.mkpath(QLatin1String(name));
  return folder.filePath(
      QStringLiteral("%1/%2.bmp")
          .arg(QLatin1String(name),
               QString::fromLatin1(file.data(), static_cast<qsizetype>(file.size()))));
}

bool WriteAll(const QDir& folder) {
  bool written = true;
  for (const std::string_view marker : velmora::kMarkers)
    written &= velmora::MarkerPixmap(marker, kSize)
                   .save(Path(folder, "Imagens_Marcador", velmora::MarkerPictureName(marker)));
  for (std::size_t i = 0; i < velmora::kColours.size(); ++i)
    written &= velmora::ColourPixmap(static_cast<std::int32_t>(i) + 1, kSize)
                   .save(Path(folder, "Imagens_Cores", velmora::kColours[i].name));
  return written;
}

bool WriteIcon(const QDir& folder) {
  const QIcon icon = velmora::GrowthCurveIcon();
  bool written = true;
  for (const QSize& size : icon.availableSizes()) {
    const QString place =
        QStringLiteral("icons/hicolor/%1x%1/apps").arg(QString::number(size.width()));
    folder.mkpath(place);
    written &= icon.pixmap(size).save(folder.filePath(place + QStringLiteral("/velmora.png")));
  }
  return written;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  if (argc != 2) {
    std::fputs("use: velmora-images DIR\n", stderr);
    return 2;
  }
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  if (WriteAll(folder) && WriteIcon(folder)) return 0;
  std::fprintf(stderr, "velmora-images: cannot write into %s\n", argv[1]);
  return 3;
}

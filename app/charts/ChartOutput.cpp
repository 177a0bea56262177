#include "app/charts/ChartOutput.h"

#include <QBuffer>
#include <QClipboard>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QMimeData>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "app/charts/ChartPainter.h"
#include "app/charts/Markers.h"

namespace velmora {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kThinLine = 0.75;             // points: a pixel of a usual screen
constexpr QMarginsF kMargins(15, 15, 15, 15);  // mm
constexpr int kPdfResolution = 1200;

// Sizes of the legend in thin lines.
constexpr double kLetters = 13;
constexpr double kFigure = 11;
constexpr double kGap = 6;
constexpr double kBetweenCells = 20;
constexpr double kPadding = 8;
constexpr double kAboveLegend = 12;

const QString kMore = QStringLiteral("...");

QString DocumentName(const ChartPage& page) {
  return QStringLiteral("Velmora - ") + QString::fromStdString(PlotTitle(page.chart.variable));
}

/// The legend as one box: its heading, then the experiments side by side in equal cells.
class LegendBox {
 public:
  LegendBox(QPainter& painter, const ChartPage& page, double unit, double widest)
      : painter_(painter), page_(page), unit_(unit) {
    QFont font = painter.font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(Units(kLetters)))));
    painter.setFont(font);
    const QFontMetricsF metrics(font, painter.device());
    line_ = metrics.height() + Units(3);
    ascent_ = metrics.ascent();
    for (std::size_t i = 0; i < Count(); ++i)
      cell_ = std::max(cell_, TextAt() + metrics.horizontalAdvance(TextOf(i)));
    cell_ += Units(kBetweenCells);
    const double room = widest - 2 * Units(kPadding);
    columns_ = std::clamp<std::size_t>(static_cast<std::size_t>(std::max(room / cell_, 1.0)), 1,
                                       std::max<std::size_t>(Count(), 1));
    width_ = std::max(static_cast<double>(columns_) * cell_,
                      metrics.horizontalAdvance(page.legendHeading)) +
             2 * Units(kPadding);
  }

  double Width() const { return width_; }
  double Height() const {
    const std::size_t rows = (Count() + columns_ - 1) / columns_;
    return static_cast<double>(rows + 1) * line_ + 2 * Units(kPadding);
  }

  void Paint(const QPointF& upperLeft) {
    painter_.setPen(QPen(Qt::darkGray, unit_));
    painter_.setBrush(Qt::white);
    painter_.drawRect(QRectF(upperLeft, QSizeF(Width(), Height())));
    const QPointF first = upperLeft + QPointF(Units(kPadding), Units(kPadding));
    painter_.setPen(Qt::black);
    painter_.drawText(first + QPointF(0, ascent_), page_.legendHeading);
    for (std::size_t i = 0; i < Count(); ++i) {
      const std::size_t column = i % columns_, row = i / columns_ + 1;  // row 0 is the heading's
      PaintCell(i, first + QPointF(static_cast<double>(column) * cell_,
                                   static_cast<double>(row) * line_));
    }
  }

 private:
  double Units(double count) const { return count * unit_; }
  double TextAt() const { return Units(2 * (kFigure + kGap)); }
  std::size_t Count() const { return std::min(page_.legend.size(), kMostLegendRows); }
  bool IsMore(std::size_t i) const {
    return i + 1 == kMostLegendRows && page_.legend.size() > kMostLegendRows;
  }
  QString TextOf(std::size_t i) const {
    if (IsMore(i)) return kMore;
    return page_.legendRowWord + QLatin1Char(' ') + QString::number(page_.legend[i].number);
  }

  void PaintCell(std::size_t i, const QPointF& at) {
    const LegendRow& row = page_.legend[i];
    const double top = at.y() + (line_ - Units(kFigure)) / 2;
    if (!IsMore(i)) {
      DrawMarker(painter_, row.marker, {at.x() + Units(kFigure / 2), top + Units(kFigure / 2)},
                 Units(kFigure), Qt::black, Units(1));
      painter_.fillRect(QRectF(at.x() + Units(kFigure + kGap), top, Units(kFigure), Units(kFigure)),
                        ColourOf(row.colour));
    }
    painter_.setPen(Qt::black);
    painter_.drawText(at + QPointF(TextAt(), (line_ - Units(3)) / 2 + ascent_ / 2), TextOf(i));
  }

  QPainter& painter_;
  const ChartPage& page_;
  double unit_;
  double line_ = 0, ascent_ = 0, cell_ = 0, width_ = 0;
  std::size_t columns_ = 1;
};

/// A chart that is wider than high fills a sheet that is, too.
QPageLayout::Orientation OrientationOf(const ChartPage& page) {
  return page.proportion > 1 ? QPageLayout::Landscape : QPageLayout::Portrait;
}

void SetUp(QPrinter& printer, const ChartPage& page) {
  printer.setDocName(DocumentName(page));
  printer.setPageOrientation(OrientationOf(page));
  printer.setPageMargins(kMargins, QPageLayout::Millimeter);
}

/// The largest size of the given proportion inside `room`.
QSizeF Largest(const QSizeF& room, double proportion) {
  return room.width() / proportion <= room.height()
             ? QSizeF(room.width(), room.width() / proportion)
             : QSizeF(room.height() * proportion, room.height());
}

}  // namespace

QImage PictureOf(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

std::string DrawingOf(const ChartContent& chart, const QSize& size) {
  constexpr double kWidth = 160, kDpi = 300;  // mm; a drawing is of any resolution
  const double height = kWidth * size.height() / std::max(1, size.width());
  return velmora::PictureOf(std::vector{chart}, 1, {}, PictureFormat::Svg, {kWidth, height, kDpi});
}

void CopyPicture(const QImage& picture, const std::string& svg) {
  auto* const data = new QMimeData;
  data->setImageData(picture);
  if (!svg.empty()) data->setData(QStringLiteral("image/svg+xml"), QByteArray::fromStdString(svg));
  QGuiApplication::clipboard()->setMimeData(data);
}

QByteArray BitmapOf(const QImage& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "BMP");
  return bytes;
}

void PaintPage(QPainter& painter, const ChartPage& page) {
  painter.save();
  const double unit = kThinLine * painter.device()->logicalDpiY() / kPointsPerInch;
  QSizeF room(painter.device()->width(), painter.device()->height());
  const double width = room.width();
  LegendBox legend(painter, page, unit, width);
  const bool withLegend = !page.legend.empty();
  const double gap = kAboveLegend * unit;
  if (withLegend) room.rheight() -= legend.Height() + gap;
  const QSizeF size = Largest(room, page.proportion);
  const QRectF paper(QPointF((width - size.width()) / 2, 0), size);
  PaintChart(painter, paper, page.chart, {PointStyle::Markers, unit, 0});
  if (withLegend) legend.Paint({(width - legend.Width()) / 2, paper.bottom() + gap});
  painter.restore();
}

QByteArray PdfOf(const ChartPage& page) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setTitle(DocumentName(page));
  writer.setResolution(kPdfResolution);
  writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), OrientationOf(page), kMargins,
                                   QPageLayout::Millimeter));
  QPainter painter(&writer);
  PaintPage(painter, page);
  painter.end();
  return bytes;
}

bool PrintDesk::HasPrinter() const {
  return !QPrinterInfo::availablePrinterNames().isEmpty();
}

bool PrintDesk::Choose(QPrinter& printer, QWidget* owner) {
  return QPrintDialog(&printer, owner).exec() == QDialog::Accepted;
}

void PrintDesk::Preview(QPrinter& printer, QWidget* owner,
                        const std::function<void(QPrinter*)>& paint) {
  QPrintPreviewDialog preview(&printer, owner);
  preview.setWindowTitle(printer.docName());
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview, paint);
  preview.exec();
}

void PreviewPage(const ChartPage& page, PrintDesk& desk, QWidget* owner) {
  QPrinter printer(QPrinter::HighResolution);
  SetUp(printer, page);
  desk.Preview(printer, owner, [&page](QPrinter* paper) {
    QPainter painter(paper);
    if (painter.isActive()) PaintPage(painter, page);
  });
}

std::string FileOf(const ChartPage& page, PictureFormat format, double width, double dpi) {
  return PictureOf(std::vector{page.chart}, 1, page.legend, format,
                   {width, width / page.proportion, dpi});
}

PrintOutcome PrintPage(const ChartPage& page, PrintDesk& desk, QWidget* owner) {
  if (!desk.HasPrinter()) return PrintOutcome::NoPrinter;
  QPrinter printer(QPrinter::HighResolution);
  SetUp(printer, page);
  if (!desk.Choose(printer, owner)) return PrintOutcome::Cancelled;
  QPainter painter;
  // Whether there is a printer behind the object, only beginning tells.
  if (!painter.begin(&printer)) return PrintOutcome::Refused;
  PaintPage(painter, page);
  return painter.end() ? PrintOutcome::Sent : PrintOutcome::Refused;
}

}  // namespace velmora

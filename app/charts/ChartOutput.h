// A chart that leaves the program: as a picture for the clipboard or a bitmap file, or on paper.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/charts/LegendView.h"
#include "charts/ChartContent.h"
#include "charts/PictureFile.h"

class QPainter;
class QPrinter;
class QWidget;

namespace velmora {

/// What the widget shows, with what lies on it, from its own content: as large as on the screen
/// times the display's scale.
QImage PictureOf(QWidget& widget);

/// The chart as an SVG file, in the proportions of `size`.
std::string DrawingOf(const ChartContent& chart, const QSize& size);

/// Puts the picture on the clipboard, from which other programs take it as PNG or bitmap, or, where
/// `svg` is not empty, as the drawing that these bytes hold.
void CopyPicture(const QImage& picture, const std::string& svg = {});

/// The picture as a bitmap file.
QByteArray BitmapOf(const QImage& picture);

/// A chart on paper: the chart, then its legend.
struct ChartPage {
  ChartContent chart;
  double proportion = 1.5;  // of the chart: width over height
  QString legendHeading;
  QString legendRowWord;          // before each number
  std::vector<LegendRow> legend;  // empty where the chart is printed alone
};

/// Paints the page on the painter's device: the chart as large as width and height allow, the
/// legend below it. Sizes of lines and letters are in points, whatever the device's resolution.
void PaintPage(QPainter& painter, const ChartPage& page);

/// The page as a PDF file of one A4 sheet.
QByteArray PdfOf(const ChartPage& page);

/// The way to the system's printers, which a test goes by itself.
class PrintDesk {
 public:
  virtual ~PrintDesk() = default;
  /// Whether the system knows a printer.
  virtual bool HasPrinter() const;
  /// Shows the system's print dialog; false where the user cancels.
  virtual bool Choose(QPrinter& printer, QWidget* owner);
  /// Shows what `paint` puts on the printer's pages until the user closes it or prints.
  virtual void Preview(QPrinter& printer, QWidget* owner,
                       const std::function<void(QPrinter*)>& paint);
};

enum class PrintOutcome : std::uint8_t { Sent, Cancelled, NoPrinter, Refused };

/// Sends the page to the printer that the user chooses. Refused: the printer cannot be drawn on.
PrintOutcome PrintPage(const ChartPage& page, PrintDesk& desk, QWidget* owner);

/// Shows the page as it would be printed.
void PreviewPage(const ChartPage& page, PrintDesk& desk, QWidget* owner);

/// The page's chart with its legend as a PNG, SVG or PDF file of `width` mm.
std::string FileOf(const ChartPage& page, PictureFormat format, double width, double dpi);

}  // namespace velmora

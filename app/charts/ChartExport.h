// The user's ways to keep an enlarged chart: a bitmap file, the printer, a PDF file.
#pragma once

#include <memory>

#include "app/charts/ChartOutput.h"
#include "app/widgets/Dialogs.h"
#include "session/Session.h"

namespace velmora {

class ChartExport {
 public:
  ChartExport(Dialogs& dialogs, std::unique_ptr<PrintDesk> printers, QWidget* owner)
      : dialogs_(dialogs), printers_(std::move(printers)), owner_(owner) {}

  /// Writes the chart to a file that the user chooses: `picture` as a bitmap, or the page's chart
  /// as PNG, SVG or PDF, in a size that the user states.
  void Save(const ChartPage& page, const QImage& picture, const Session& session);
  /// Shows the page as it would be printed.
  void Preview(const ChartPage& page) { PreviewPage(page, *printers_, owner_); }
  /// Prints the page; where there is no printer for it, offers a PDF file in its place.
  void Print(const ChartPage& page);

 private:
  void OfferPdf(const ChartPage& page, TextId reason);
  /// The chosen file's name; empty where the user cancels, or where it is refused.
  QString FileToSave(const QString& filter, const QString& suffix);
  void Write(const QString& file, const QByteArray& bytes);

  Dialogs& dialogs_;
  std::unique_ptr<PrintDesk> printers_;
  QWidget* owner_;
};

}  // namespace velmora

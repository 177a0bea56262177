#include "app/charts/ChartExport.h"

#include <QFileInfo>

#include "data/SafeSave.h"

namespace velmora {

void ChartExport::Save(const QImage& picture) {
  const QString file = FileToSave(QStringLiteral("Arquivos Textos (*.bmp)"), QStringLiteral("bmp"));
  if (!file.isEmpty()) Write(file, BitmapOf(picture));
}

void ChartExport::Print(const ChartPage& page) {
  switch (PrintPage(page, *printers_, owner_)) {
    case PrintOutcome::NoPrinter:
      return OfferPdf(page, TextId::NoPrinter);
    case PrintOutcome::Refused:
      return OfferPdf(page, TextId::PrinterRefused);
    case PrintOutcome::Sent:
    case PrintOutcome::Cancelled:
      break;
  }
}

void ChartExport::OfferPdf(const ChartPage& page, TextId reason) {
  const Message offer = Attention({reason, "\n", TextId::AskToSavePdf}, Icon::Question);
  if (dialogs_.Show(owner_, offer, Buttons::YesNo) != Answer::Yes) return;
  const QString file = FileToSave(QStringLiteral("PDF (*.pdf)"), QStringLiteral("pdf"));
  if (!file.isEmpty()) Write(file, PdfOf(page));
}

QString ChartExport::FileToSave(const QString& filter, const QString& suffix) {
  QString file = dialogs_.SaveFile(owner_, filter, suffix);
  // A cancelled dialog gives no name at all. An empty one is blank but for the suffix.
  if (file.isNull() || !QFileInfo(file).completeBaseName().trimmed().isEmpty()) return file;
  dialogs_.Show(owner_, Attention({TextId::InvalidName}, Icon::Exclamation));
  return {};
}

void ChartExport::Write(const QString& file, const QByteArray& bytes) {
  const std::string_view content(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  if (const auto fault = SafeSave(LocalPath(file), content)) dialogs_.TellFault(owner_, *fault);
}

}  // namespace velmora

#include "app/charts/ChartExport.h"

#include <QFileInfo>

#include "app/charts/dlgTamanhoFigura.h"
#include "data/SafeSave.h"

namespace velmora {

void ChartExport::Save(const ChartPage& page, const QImage& picture, const Session& session) {
  const QString file =
      FileToSave(QStringLiteral("Arquivos Textos (*.bmp);;PNG (*.png);;SVG (*.svg);;PDF (*.pdf)"),
                 QStringLiteral("bmp"));
  if (file.isEmpty()) return;
  if (file.endsWith(QStringLiteral(".bmp"), Qt::CaseInsensitive))
    return Write(file, BitmapOf(picture));
  const auto format = PictureFormatOf(file.toStdString());
  if (!format) {
    dialogs_.Show(owner_, Attention({TextId::UnknownPicture}, Icon::Exclamation));
    return;
  }
  dlgTamanhoFigura size(session, owner_);
  if (size.exec() == QDialog::Accepted)
    Write(file, QByteArray::fromStdString(FileOf(page, *format, size.Width(), size.Resolution())));
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

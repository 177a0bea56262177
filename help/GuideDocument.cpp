#include "help/GuideDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>

namespace velmora {
namespace {

constexpr int kResolution = 96;  // dots per inch, of which the style sheet's pixels are made
constexpr qreal kMargin = 64;    // px, round the text
constexpr qreal kFooter = 34;    // px, from the text's end to the page number

constexpr const char* kStyle =
    "body { font-family: sans-serif; font-size: 10pt; }"
    "h1 { font-size: 20pt; } h2 { font-size: 15pt; } h3 { font-size: 11.5pt; }"
    "th { text-align: left; background-color: #e8eeea; }"
    "code, pre { font-family: monospace; font-size: 9pt; }";

/// Paints one page of the document and its number.
void PaintPage(QPainter& painter, QTextDocument& document, int page, const QSizeF& text) {
  painter.save();
  painter.translate(kMargin, kMargin - page * text.height());
  // A pixel less, or the edge of a picture on the next page would show.
  document.drawContents(&painter, QRectF(0, page * text.height(), text.width(), text.height() - 1));
  painter.restore();
  if (page == 0) return;
  const QRectF footer(kMargin, kMargin + text.height() + kFooter / 2, text.width(), kFooter);
  painter.setPen(Qt::darkGray);
  painter.drawText(footer, Qt::AlignRight | Qt::AlignTop, QString::number(page + 1));
}

}  // namespace

bool WriteGuidePage(const QString& html, const QMap<QString, QImage>& pictures,
                    const QString& title, const QString& file) {
  QString page = html;
  for (auto picture = pictures.begin(); picture != pictures.end(); ++picture) {
    if (!html.contains(u'"' + picture.key() + QStringLiteral(".png\""))) continue;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    picture.value().save(&buffer, "PNG");
    page.replace(
        u'"' + picture.key() + QStringLiteral(".png\""),
        QStringLiteral("\"data:image/png;base64,") + QString::fromLatin1(png.toBase64()) + u'"');
  }
  page.replace(QStringLiteral("<html>"),
               QStringLiteral("<html><head><meta charset=\"utf-8\"><title>%1</title>"
                              "<style>%2</style></head>")
                   .arg(title, QString::fromLatin1(kStyle)));
  QFile out(file);
  const QByteArray bytes = page.toUtf8();
  return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
}

bool PrintGuide(const QString& html, const QMap<QString, QImage>& pictures, const QString& title,
                const QString& file) {
  QPdfWriter writer(file);
  writer.setTitle(title);
  writer.setResolution(kResolution);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageMargins(QMarginsF());
  const QSizeF page(writer.width(), writer.height());
  const QSizeF text(page.width() - 2 * kMargin, page.height() - 2 * kMargin - kFooter / 2);

  QTextDocument document;
  document.documentLayout()->setPaintDevice(&writer);
  document.setDocumentMargin(0);
  document.setDefaultStyleSheet(QString::fromLatin1(kStyle));
  for (auto picture = pictures.begin(); picture != pictures.end(); ++picture)
    document.addResource(QTextDocument::ImageResource, QUrl(picture.key() + QStringLiteral(".png")),
                         picture.value());
  document.setHtml(html);
  document.setPageSize(text);

  QPainter painter;
  if (!painter.begin(&writer)) return false;
  for (int number = 0; number < document.pageCount(); ++number) {
    if (number > 0) writer.newPage();
    PaintPage(painter, document, number, text);
  }
  return painter.end();
}

}  // namespace velmora

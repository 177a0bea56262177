#include "app/cultivation/frmRelatorio.h"

#include <QBuffer>
#include <QEvent>
#include <QHBoxLayout>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QTextDocument>
#include <QTextEdit>
#include <QUrl>
#include <QVBoxLayout>
#include <utility>

#include "app/charts/ChartPainter.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "report/ReportCharts.h"

namespace velmora {
namespace {

// Pixels.
constexpr QSize kUsualSize(780, 680);
constexpr int kPageMargin = 24, kMargin = 8;
constexpr int kPictureWidth = 680;
constexpr int kButtonPadding = 16;  // both sides together

std::string PngOf(const ChartContent& content) {
  QImage image(kReportChartWidth, kReportChartHeight, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  PainterCanvas canvas(painter);
  DrawReportChart(canvas, content);
  painter.end();
  QByteArray png;
  QBuffer buffer(&png);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, "PNG");
  return png.toStdString();
}

}  // namespace

std::vector<ReportPicture> ReportPictures(const ExperimentLists& lists, const ModelCurves& curves,
                                          bool gridLines, char separator) {
  std::vector<ReportPicture> pictures;
  for (const auto& [titleId, content] : ReportCharts(lists, curves, gridLines, separator))
    pictures.push_back(
        {titleId, {PngOf(content), kReportChartWidth, kReportChartHeight, ReportDrawing(content)}});
  return pictures;
}

frmRelatorio::frmRelatorio(const Session& session, Dialogs& dialogs, ReportContent report,
                           QWidget* parent)
    : QDialog(parent, Qt::Window),
      session_(session),
      dialogs_(dialogs),
      report_(std::move(report)) {
  setObjectName(QStringLiteral("frmRelatorio"));
  BuildPanels();
  LayOut();
  Wire();
  Idiomas(*this, session_.language);
}

void frmRelatorio::BuildPanels() {
  RichTextBox1_ = Named<QTextEdit>("RichTextBox1", this);
  RichTextBox1_->setReadOnly(true);
  // Black on white whatever the desktop's colours, as the charts are and as it will be on paper.
  QPalette paper = RichTextBox1_->palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  RichTextBox1_->setPalette(paper);
  cmdSalvar_ = Named<QPushButton>("cmdSalvar", this);
  cmdSalvar_->setDefault(true);
  cmdFechar_ = Named<QPushButton>("cmdFechar", this);
}

void frmRelatorio::LayOut() {
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(kMargin);
  buttons->addStretch();
  buttons->addWidget(cmdSalvar_);
  buttons->addWidget(cmdFechar_);
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  whole->setSpacing(kMargin);
  whole->addWidget(RichTextBox1_, 1);
  whole->addLayout(buttons);
  FitScreen(*this, kUsualSize);
}

void frmRelatorio::Wire() {
  connect(cmdSalvar_, &QPushButton::clicked, this, &frmRelatorio::Save);
  connect(cmdFechar_, &QPushButton::clicked, this, &frmRelatorio::close);
}

void frmRelatorio::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) ShowReport();
}

void frmRelatorio::ShowReport() {
  report_.style = {session_.language, session_.separator};
  RichTextBox1_->setAccessibleName(windowTitle());
  for (QPushButton* const button : {cmdSalvar_, cmdFechar_})
    button->setMinimumWidth(button->sizeHint().width() + kButtonPadding);
  QTextDocument& text = *RichTextBox1_->document();
  text.clear();  // the pictures with it
  text.setDocumentMargin(kPageMargin);
  // The view scales without smoothing: a picture comes in the size in which it is shown.
  const int width = qRound(kPictureWidth * devicePixelRatioF());
  int index = 0;
  for (const ReportPicture& chart : report_.pictures)
    text.addResource(QTextDocument::ImageResource,
                     QUrl(QString::fromStdString(rich::PictureName(index++))),
                     QImage::fromData(QByteArray::fromStdString(chart.picture.png))
                         .scaledToWidth(width, Qt::SmoothTransformation));
  RichTextBox1_->setHtml(
      QString::fromStdString(rich::Html(ReportDocument(report_), kPictureWidth)));
}

void frmRelatorio::Save() {
  const QString file =
      dialogs_.SaveFile(this, QStringLiteral("RTF Files (*.rtf)"), QStringLiteral("rtf"));
  if (file.isEmpty()) return;
  if (const auto fault = SaveReport(report_, LocalPath(file))) dialogs_.TellFault(this, *fault);
}

}  // namespace velmora

#include "app/charts/frmZoom.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/charts/ChartView.h"
#include "app/charts/LegendView.h"
#include "app/charts/PlotsPanel.h"
#include "app/charts/ZoomButtons.h"
#include "app/charts/dlgIntervalos.h"
#include "app/charts/dlgTituloGrafico.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "app/widgets/ProgramFolder.h"
#include "language/Numbers.h"
#include "session/Operations.h"

namespace velmora {
namespace {
constexpr int kDecimals = 4;  // of the coordinates

constexpr QSize kUsualSize(900, 600);
constexpr int kMargin = 8, kLegendMargin = 12;  // px
constexpr int kCoordinateLetters = 14;

// "Exp." is short for the word in both languages.
const QString kRowWord = QStringLiteral("Exp.");

constexpr const char* kCannotBeSized =
    "Erro ao dimensionar imagem. Abra novamente a janela de Zoom.";

/// Where a legend stands in a chart that was resized: at the same share of the room around it.
int SameShare(int at, int roomBefore, int room) {
  const double share = roomBefore > 0 ? static_cast<double>(at) / roomBefore : 1;
  return std::clamp(static_cast<int>(std::lround(share * room)), 0, std::max(0, room));
}

}  // namespace

frmZoom::frmZoom(const Session& session, Dialogs& dialogs, PlotVariable variable, QWidget* parent,
                 std::unique_ptr<PrintDesk> printers)
    : QDialog(parent, Qt::Window),
      session_(session),
      dialogs_(dialogs),
      output_(dialogs, std::move(printers), this),
      variable_(variable),
      lists_(session.lists),
      curves_(session.curves),
      gridLines_(session.gridLines) {
  setObjectName(QStringLiteral("frmZoom"));
  setWindowTitle(QStringLiteral("Zoom"));
  BuildPanels();
  LayOut();
  Wire();
  ShowChart();
}

frmZoom::~frmZoom() = default;

void frmZoom::BuildPanels() {
  buttons_ = new ZoomButtons(this);
  picZoom_ = Named<ChartView>("picZoom", this);
  picZoom_->setAccessibleName(QString::fromStdString(PlotTitle(variable_)));
  picZoom_->SetStyle({PointStyle::Markers, 1, 0});
  picZoom_->setCursor(Qt::CrossCursor);
  BuildLegend();
  picHidden_ = Named<QLabel>("picHidden", this);
  picHidden_->hide();
  lblTempo_ = Named<QLabel>("lblTempo", this);
  lblX_ = Named<QLabel>("lblX", this);
  lblVariavel_ = Named<QLabel>("lblVariavel", this);
  lblVariavel_->setText(QString::fromStdString(PlotTitle(variable_).substr(0, 2)) +
                        QLatin1Char(':'));
  lblY_ = Named<QLabel>("lblY", this);
}

void frmZoom::BuildLegend() {
  picLegenda_ = new LegendView(ProgramFolder(), picZoom_);
  picLegenda_->Heading().setObjectName(QStringLiteral("lblLegenda"));
  picLegenda_->setCursor(Qt::SizeAllCursor);
  picLegenda_->SetRowWord(kRowWord);
  picLegenda_->SetRows(LegendRows(lists_));
  picLegenda_->hide();
}

QWidget* frmZoom::CoordinateRow() {
  auto* const panel = new QWidget(this);
  auto* const row = new QHBoxLayout(panel);
  row->setContentsMargins({});
  for (const auto& [caption, value] : {std::pair(lblTempo_, lblX_), {lblVariavel_, lblY_}}) {
    value->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * kCoordinateLetters);
    row->addWidget(caption);
    row->addWidget(value);
  }
  row->addStretch();
  return panel;
}

void frmZoom::LayOut() {
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  whole->setSpacing(kMargin);
  whole->addWidget(buttons_);
  whole->addWidget(picZoom_, 1);
  whole->addWidget(CoordinateRow());
  resize(kUsualSize);
}

void frmZoom::Wire() {
  connect(buttons_, &ZoomButtons::Wanted, this, &frmZoom::Do);
  connect(picZoom_, &ChartView::PointedAt, this, &frmZoom::ShowPoint);
  picZoom_->installEventFilter(this);
}

void frmZoom::Do(ZoomAction action) {
  switch (action) {
    case ZoomAction::Title:
      return ToggleTitle();
    case ZoomAction::Legend:
      return ToggleLegend();
    case ZoomAction::GridLines:
      return ToggleGridLines();
    case ZoomAction::Range:
      return AskInterval();
    case ZoomAction::Copy:
      return CopyChart();
    case ZoomAction::Save:
      return output_.Save(PictureOf(*picZoom_));
    case ZoomAction::Print:
      return output_.Print(Page());
    case ZoomAction::Close:
      close();
  }
}

void frmZoom::ShowChart() {
  Idiomas(*this, session_.language);
  Redraw();
}

void frmZoom::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  picLegenda_->setAccessibleName(picLegenda_->Heading().text());
  picLegenda_->adjustSize();
  MoveLegend(picZoom_->size(), picZoom_->size());
}

bool frmZoom::eventFilter(QObject* watched, QEvent* event) {
  if (watched == picZoom_ && event->type() == QEvent::Resize) {
    const auto& resized = static_cast<const QResizeEvent&>(*event);
    MoveLegend(resized.oldSize(), resized.size());
  }
  return QDialog::eventFilter(watched, event);
}

bool frmZoom::Sized() const {
  return CanBeSized(picZoom_->Content());
}

void frmZoom::WithdrawCurves(const ExperimentLists& lists) {
  for (std::size_t i = 0; i < std::min(curves_.size(), lists_.Experiments().size()); ++i)
    if (!HoldsMeasurements(lists, lists_.Experiments()[i])) curves_[i] = {};
  Redraw();
}

void frmZoom::ToggleTitle() {
  if (title_.empty()) {
    dlgTituloGrafico ask(session_, this);
    if (ask.exec() == QDialog::Accepted) title_ = ask.Title().toStdString();
  } else {
    title_.clear();
  }
  Redraw();
}

void frmZoom::ToggleLegend() {
  picLegenda_->setVisible(picLegenda_->isHidden());
  if (!legendPlaced_) {
    picLegenda_->adjustSize();
    picLegenda_->move(picZoom_->width() - picLegenda_->width() - kLegendMargin, kLegendMargin);
    legendPlaced_ = true;
  }
  MoveLegend(picZoom_->size(), picZoom_->size());
  Redraw();
}

void frmZoom::ToggleGridLines() {
  gridLines_ = !gridLines_;
  Redraw();
}

void frmZoom::AskInterval() {
  const TimeInterval measured = MeasuredTimes(lists_);
  dlgIntervalos ask(session_, dialogs_, measured, interval_.value_or(measured), this);
  if (ask.exec() == QDialog::Accepted) PlotaExpIntervalos(ask.Interval());
}

void frmZoom::PlotaExpIntervalos(const TimeInterval& interval) {
  interval_ = interval;
  Redraw();
}

void frmZoom::Redraw() {
  ChartContent content =
      ContentOf(variable_, lists_, &curves_, gridLines_, session_.separator, interval_);
  content.title = title_;
  picZoom_->SetContent(std::move(content));
  buttons_->SetShown(!title_.empty(), !picLegenda_->isHidden(), gridLines_);
}

void frmZoom::ShowPoint(const PlotPoint& point) {
  const auto shown = [this](double value, const char* unit) {
    return QString::fromStdString(PlainText(Arredondamento(value, kDecimals), session_.separator) +
                                  unit);
  };
  lblX_->setText(shown(point.x, " h"));
  lblY_->setText(shown(point.y, " g/L"));
}

void frmZoom::MoveLegend(const QSize& from, const QSize& to) {
  if (!legendPlaced_) return;
  const QSize legend = picLegenda_->size();
  const QSize before = from - legend, room = to - legend;
  picLegenda_->move(SameShare(picLegenda_->x(), before.width(), room.width()),
                    SameShare(picLegenda_->y(), before.height(), room.height()));
}

void frmZoom::CopyChart() {
  const QImage picture = PictureOf(*picZoom_);
  picHidden_->setPixmap(QPixmap::fromImage(picture));
  CopyPicture(picture);
}

ChartPage frmZoom::Page() const {
  ChartPage page;
  page.chart = picZoom_->Content();
  page.proportion = static_cast<double>(picZoom_->width()) / std::max(1, picZoom_->height());
  page.legendHeading = picLegenda_->Heading().text();
  page.legendRowWord = kRowWord;
  if (!picLegenda_->isHidden()) page.legend = LegendRows(lists_);
  return page;
}

void GraficoZoomSub(const Session& session, Dialogs& dialogs, QWidget* owner) {
  constexpr PlotName kPlots[] = {kPicCs, kPicCx, kPicCp};
  const auto* const clicked =
      std::find_if(std::begin(kPlots), std::end(kPlots),
                   [&](const PlotName& plot) { return session.clickedChart == plot.name; });
  if (clicked == std::end(kPlots)) return;
  auto window = std::make_unique<frmZoom>(session, dialogs, clicked->variable, owner);
  if (!window->Sized()) {
    dialogs.Show(owner, Attention({kCannotBeSized}, Icon::Exclamation));
    return;
  }
  window->setAttribute(Qt::WA_DeleteOnClose);
  window.release()->show();
}

}  // namespace velmora

#include "app/charts/frmZoom.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QResizeEvent>
#include <QScreen>
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
constexpr int kMargin = 8;  // px
constexpr int kAside = 32;  // px, about a title bar

// Of what is copied as a drawing: mm and pixels an inch.
constexpr double kCopiedWidth = 160, kCopiedDpi = 300;
constexpr int kCoordinateLetters = 14;

// Charts stay in sight while data are worked on, and are as large as the user wants.
constexpr Qt::WindowFlags kAboveItsOwner = Qt::Dialog | Qt::WindowTitleHint |
                                           Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                                           Qt::WindowCloseButtonHint;

// "Exp." is short for the word in both languages.
const QString kRowWord = QStringLiteral("Exp.");

constexpr const char* kCannotBeSized =
    "Erro ao dimensionar imagem. Abra novamente a janela de Zoom.";

TextId NameOf(PlotVariable variable) {
  if (variable == PlotVariable::Cx) return TextId::CxVersusTime;
  return variable == PlotVariable::Cp ? TextId::CpVersusTime : TextId::CsVersusTime;
}

/// Moves the window to the right of the one opened last, or below it, where the screen has room;
/// else a little aside. The first one leaves room for the next.
void PutBesideOthers(frmZoom& window, const QWidget& owner) {
  const frmZoom* last = nullptr;
  for (const frmZoom* const other : owner.findChildren<frmZoom*>())
    if (other != &window && other->isVisible()) last = other;
  const QRect screen = window.screen()->availableGeometry();
  if (last == nullptr) {
    const QSize room = screen.size() - QSize(2 * window.width(), window.height());
    if (room.width() >= kAside)
      window.move(screen.topLeft() + QPoint(room.width(), room.height()) / 2);
    return;
  }
  const QRect beside = last->frameGeometry();
  const QPoint aside = beside.topLeft() + QPoint(kAside, kAside);
  for (const QPoint at : {QPoint(beside.right() + 1, beside.top()),
                          QPoint(beside.left(), beside.bottom() + 1), aside})
    if (screen.contains(QRect(at, window.size() + QSize(0, kAside)))) return window.move(at);
}

/// Where a legend stands in a chart that was resized: at the same share of the room around it.
int SameShare(int at, int roomBefore, int room) {
  const double share = roomBefore > 0 ? static_cast<double>(at) / roomBefore : 1;
  return std::clamp(static_cast<int>(std::lround(share * room)), 0, std::max(0, room));
}

}  // namespace

frmZoom::frmZoom(const Session& session, Dialogs& dialogs, PlotVariable variable, QWidget* parent,
                 std::unique_ptr<PrintDesk> printers)
    : QDialog(parent, kAboveItsOwner),
      session_(session),
      dialogs_(dialogs),
      output_(dialogs, std::move(printers), this),
      chart_{variable, session.lists, session.curves} {
  chart_.gridLines = session.gridLines;
  chart_.published = chart_.legend = session.forPublication;
  setObjectName(QStringLiteral("frmZoom"));
  BuildPanels();
  LayOut();
  Wire();
  ShowChart();
}

frmZoom::~frmZoom() = default;

void frmZoom::BuildPanels() {
  buttons_ = new ZoomButtons(this);
  picZoom_ = Named<ChartView>("picZoom", this);
  picZoom_->setAccessibleName(QString::fromStdString(PlotTitle(chart_.variable)));
  picZoom_->SetStyle({PointStyle::Markers, 1, 0});
  picZoom_->SetNavigable(true);
  picZoom_->setCursor(Qt::CrossCursor);
  BuildLegend();
  picHidden_ = Named<QLabel>("picHidden", this);
  picHidden_->hide();
  lblTempo_ = Named<QLabel>("lblTempo", this);
  lblX_ = Named<QLabel>("lblX", this);
  lblVariavel_ = Named<QLabel>("lblVariavel", this);
  lblVariavel_->setText(QString::fromStdString(PlotTitle(chart_.variable).substr(0, 2)) +
                        QLatin1Char(':'));
  lblY_ = Named<QLabel>("lblY", this);
}

void frmZoom::BuildLegend() {
  picLegenda_ = new LegendView(ProgramFolder(), picZoom_);
  picLegenda_->Heading().setObjectName(QStringLiteral("lblLegenda"));
  picLegenda_->setCursor(Qt::SizeAllCursor);
  picLegenda_->SetRowWord(kRowWord);
  picLegenda_->SetRows(LegendRows(chart_.lists));
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
  FitScreen(*this, kUsualSize);
}

void frmZoom::Wire() {
  connect(buttons_, &ZoomButtons::Wanted, this, &frmZoom::Do);
  connect(picZoom_, &ChartView::PointedAt, this, &frmZoom::ShowPoint);
  connect(picZoom_, &ChartView::PartChosen, this, &frmZoom::ShowPart);
  connect(picZoom_, &ChartView::Wheeled, this, &frmZoom::Wheel);
  connect(picZoom_, &ChartView::EnlargementAsked, this, &frmZoom::ShowWhole);
  picZoom_->installEventFilter(this);
}

void frmZoom::Do(ZoomAction action) {
  switch (action) {
    case ZoomAction::Title:
      return ToggleTitle();
    case ZoomAction::Legend:
      return Toggle(&ZoomedChart::legend);
    case ZoomAction::GridLines:
      return Toggle(&ZoomedChart::gridLines);
    case ZoomAction::Range:
      return AskInterval();
    case ZoomAction::Copy:
      return CopyChart();
    case ZoomAction::Save:
      return output_.Save(Page(), PictureOf(*picZoom_), session_);
    case ZoomAction::Print:
      return output_.Print(Page());
    case ZoomAction::Preview:
      return output_.Preview(Page());
    case ZoomAction::Publication:
      return TogglePublication();
    case ZoomAction::Logarithm:
      return Toggle(&ZoomedChart::logarithmic);
    case ZoomAction::Residuals:
      return ToggleResiduals();
    case ZoomAction::Whole:
      return ShowWhole();
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
  setWindowTitle(QStringLiteral("Zoom - ") + Caption(NameOf(chart_.variable), session_.language));
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

void frmZoom::ShowSession() {
  ZoomedChart now = chart_;
  now.lists = session_.lists;
  now.curves = session_.curves;
  if (!CanBeSized(now.Content(session_.language, session_.separator))) return;
  chart_ = std::move(now);
  Redraw();
}

void frmZoom::ToggleTitle() {
  if (chart_.title.empty()) {
    dlgTituloGrafico ask(session_, this);
    if (ask.exec() == QDialog::Accepted) chart_.title = ask.Title().toStdString();
  } else {
    chart_.title.clear();
  }
  Redraw();
}

void frmZoom::Toggle(bool ZoomedChart::*choice) {
  chart_.*choice = !(chart_.*choice);
  Redraw();
}

/// A figure for publication has its legend from the beginning.
void frmZoom::TogglePublication() {
  chart_.legend = chart_.legend || !chart_.published;
  Toggle(&ZoomedChart::published);
}

/// Residuals have another upright axis, which may be negative.
void frmZoom::ToggleResiduals() {
  chart_.bounds = {};
  chart_.logarithmic = false;
  Toggle(&ZoomedChart::residuals);
}

void frmZoom::AskInterval() {
  const TimeInterval measured = MeasuredTimes(chart_.lists);
  const TimeInterval shown = chart_.interval.value_or(measured);
  dlgIntervalos ask(session_, dialogs_, measured,
                    {std::max(shown.from, measured.from), std::min(shown.to, measured.to)},
                    PlotTitle(chart_.variable), chart_.bounds, this);
  if (ask.exec() == QDialog::Accepted) PlotaExpIntervalos(ask.Interval(), ask.Bounds());
}

void frmZoom::PlotaExpIntervalos(const TimeInterval& interval, const TypedInterval& bounds) {
  chart_.interval = interval;
  chart_.bounds = bounds;
  Redraw();
}

void frmZoom::ShowWhole() {
  chart_.ShowWhole();
  Redraw();
}

void frmZoom::ShowPart(const ShownPart& part) {
  chart_.ShowPart(part.times, part.values);
  Redraw();
}

void frmZoom::Wheel(const PlotPoint& point, double factor) {
  const ShownPart shown = picZoom_->Shown();
  ShowPart({Widened(shown.times, point.x, factor, false),
            Widened(shown.values, point.y, factor, chart_.logarithmic)});
}

void frmZoom::Redraw() {
  picZoom_->SetContent(chart_.Content(session_.language, session_.separator));
  ShowLegend();
  const std::pair<ZoomAction, bool> shown[] = {
      {ZoomAction::Title, !chart_.title.empty()},  {ZoomAction::Legend, chart_.legend},
      {ZoomAction::GridLines, chart_.gridLines},   {ZoomAction::Publication, chart_.published},
      {ZoomAction::Logarithm, chart_.logarithmic}, {ZoomAction::Residuals, chart_.residuals}};
  for (const auto& [action, on] : shown) buttons_->SetShown(action, on);
  buttons_->SetUsable(ZoomAction::Logarithm, !chart_.residuals);
}

/// A figure for publication holds its legend itself; on any other chart lies a box that can be
/// dragged.
void frmZoom::ShowLegend() {
  picLegenda_->SetRows(LegendRows(chart_.lists));
  picLegenda_->setVisible(chart_.legend && !chart_.published);
  if (picLegenda_->isHidden()) return;
  picLegenda_->adjustSize();
  if (!legendPlaced_) picLegenda_->move(picZoom_->FreestCorner(picLegenda_->size()).topLeft());
  legendPlaced_ = true;
  MoveLegend(picZoom_->size(), picZoom_->size());
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
  CopyPicture(picture, FileOf(Page(), PictureFormat::Svg, kCopiedWidth, kCopiedDpi));
}

ChartPage frmZoom::Page() const {
  ChartPage page;
  page.chart = picZoom_->Content();
  page.proportion = static_cast<double>(picZoom_->width()) / std::max(1, picZoom_->height());
  page.legendHeading = picLegenda_->Heading().text();
  page.legendRowWord = kRowWord;
  if (!picLegenda_->isHidden()) page.legend = LegendRows(chart_.lists);
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
  PutBesideOthers(*window, *owner);
  window.release()->show();
}

}  // namespace velmora

#include "app/widgets/FoldingWindow.h"

#include <QApplication>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/PanelParts.h"

namespace velmora {

namespace {

using Fold = FoldingWindow::Fold;
constexpr Fold kFolds[] = {Fold::Columns, Fold::Tabs, Fold::TabsAlone};

/// Has the layouts ask anew what room everything needs, the innermost first: left alone, they do so
/// only once the event loop runs again.
void ForgetSizes(const QWidget& window) {
  const QWidgetList inside = window.findChildren<QWidget*>();
  for (auto each = inside.rbegin(); each != inside.rend(); ++each)
    if (QLayout* const layout = (*each)->layout()) {
      layout->invalidate();
      layout->activate();
    }
  window.layout()->invalidate();
  window.layout()->activate();
}

/// The control, or the one around it where it was hidden on its way, as a cell's editor is.
QWidget& Visible(QWidget& control) {
  QWidget* visible = &control;
  while (visible->isHidden() || visible->focusPolicy() == Qt::NoFocus) {
    if (visible->parentWidget() == nullptr) return control;
    visible = visible->parentWidget();
  }
  return *visible;
}

/// What stands in a tab; where its height finds no room, it scrolls, and what is beside the tabs
/// stays in view.
class TabPage : public QScrollArea {
 public:
  TabPage(QWidget* panels, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setWidget(panels);
    // The tab's own ground shows through.
    for (QWidget* const each : {panels, viewport()}) each->setAutoFillBackground(false);
  }

  QSize minimumSizeHint() const override {
    constexpr int kLeastHeight = 160;  // px
    const QSize panels = widget()->minimumSizeHint();
    return {panels.width() + verticalScrollBar()->sizeHint().width(),
            std::min(panels.height(), kLeastHeight)};
  }
  QSize sizeHint() const override { return widget()->sizeHint().expandedTo(minimumSizeHint()); }

  void Bring(const QWidget& control) {
    widget()->layout()->activate();
    const QPoint middle = control.mapTo(widget(), control.rect().center());
    ensureVisible(middle.x(), middle.y(), 0, control.height());
  }
};

}  // namespace

FoldingWindow::FoldingWindow(QWidget* parent) : QWidget(parent), above_(new QVBoxLayout) {
  auto* const all = new QVBoxLayout(this);
  TightenInside(*all);
  all->setSizeConstraint(QLayout::SetNoConstraint);
  all->addLayout(above_);
}

void FoldingWindow::Arrange(Fold fold) {
  const QPointer<QWidget> keyboard = focusWidget();
  const QWidget* const holder = QApplication::focusWidget();
  const bool elsewhere = holder != nullptr && !isAncestorOf(holder);
  const QWidget* const before = body_;
  fold_ = fold;
  body_ = Arranged(fold);
  static_cast<QVBoxLayout*>(layout())->addWidget(body_, 1);
  body_->show();
  delete before;
  OrderTabs();
  layout()->activate();
  if (!keyboard) return;
  Reveal(*keyboard);
  if (!elsewhere) Visible(*keyboard).setFocus();
}

/// The keyboard comes to the row of tabs before the panels that it chooses.
void FoldingWindow::OrderTabs() {
  QWidget* last = nullptr;
  for (QWidget* each = nextInFocusChain(); each != this; each = each->nextInFocusChain())
    for (int i = 0; i < above_->count(); ++i)
      if (above_->itemAt(i)->widget()->isAncestorOf(each) && each->focusPolicy() != Qt::NoFocus)
        last = each;
  for (const QTabWidget* const tabs : body_->findChildren<QTabWidget*>())
    setTabOrder(last, tabs->tabBar());
}

void FoldingWindow::Measure() {
  for (const Fold fold : kFolds) {
    Arrange(fold);
    ForgetSizes(*this);
    rooms_[static_cast<std::size_t>(fold)] = layout()->totalMinimumSize();
  }
  FoldToFit();
  updateGeometry();
}

bool FoldingWindow::Fits(Fold fold) const {
  const QSize& room = rooms_[static_cast<std::size_t>(fold)];
  return width() >= room.width() && height() >= room.height();
}

void FoldingWindow::FoldToFit() {
  if (body_ == nullptr) return;
  const auto* const last = std::end(kFolds) - 1;
  const Fold fold =
      *std::find_if(std::begin(kFolds), last, [this](Fold each) { return Fits(each); });
  if (fold != fold_) Arrange(fold);
}

void FoldingWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FoldToFit();
}

void FoldingWindow::Reveal(const QWidget& control) {
  for (QTabWidget* const tabs : findChildren<QTabWidget*>())
    for (int page = 0; page < tabs->count(); ++page)
      if (tabs->widget(page)->isAncestorOf(&control)) {
        tabs->setCurrentIndex(page);
        static_cast<TabPage*>(tabs->widget(page))->Bring(control);
      }
}

void AddTab(QTabWidget& tabs, const QString& caption, std::initializer_list<QWidget*> panels) {
  // Outside this window the order in which its controls have the keyboard is lost.
  auto* const page = new QWidget(&tabs);
  auto* const column = new QVBoxLayout(page);
  TightenInside(*column);
  for (QWidget* const panel : panels) column->addWidget(panel);
  column->setStretch(column->count() - 1, 1);
  tabs.addTab(new TabPage(page, &tabs), caption);
}

}  // namespace velmora

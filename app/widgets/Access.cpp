#include "app/widgets/Access.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QKeySequence>
#include <QRadioButton>
#include <algorithm>

namespace velmora {
namespace {

QAccessible::Role RoleOf(const QAbstractButton& button) {
  return qobject_cast<const QRadioButton*>(&button) != nullptr ? QAccessible::RadioButton
                                                               : QAccessible::CheckBox;
}

/// A tick, an option, or a button that stays down.
class TickAccess : public QAccessibleWidget {
 public:
  explicit TickAccess(QAbstractButton& button)
      : QAccessibleWidget(&button, RoleOf(button)), button_(button) {}

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = true;
    state.checked = button_.isChecked();
    return state;
  }

  QString text(QAccessible::Text kind) const override {
    QString told = QAccessibleWidget::text(kind);
    if (kind == QAccessible::Name && told.isEmpty()) return button_.text().remove(u'&');
    if (kind != QAccessible::Accelerator) return told;
    return QKeySequence::mnemonic(button_.text()).toString(QKeySequence::NativeText);
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (button_.isEnabled()) names.prepend(toggleAction());
    return names;
  }

  void doAction(const QString& name) override {
    if (name != toggleAction()) return QAccessibleWidget::doAction(name);
    button_.click();
  }

 private:
  QAbstractButton& button_;
};

bool IsChart(const QObject& object) {
  constexpr const char* kCharts[] = {"velmora::ChartView", "velmora::ScoreView",
                                     "velmora::CorrelationView"};
  return std::any_of(std::begin(kCharts), std::end(kCharts),
                     [&object](const char* name) { return object.inherits(name); });
}

QAccessibleInterface* Access(const QString&, QObject* object) {
  auto* const button = qobject_cast<QAbstractButton*>(object);
  if (button != nullptr && button->isCheckable()) return new TickAccess(*button);
  if (object != nullptr && IsChart(*object))
    return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Chart);
  return nullptr;
}

}  // namespace

void InstallAccess() {
  QAccessible::installFactory(Access);
}

}  // namespace velmora

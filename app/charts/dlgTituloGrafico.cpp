#include "app/charts/dlgTituloGrafico.h"

#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"

namespace velmora {
namespace {
constexpr int kSpacing = 12, kMargin = 18;  // px
constexpr int kBoxWidth = 320;              // px

}  // namespace

dlgTituloGrafico::dlgTituloGrafico(const Session& session, QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("dlgTituloGrafico"));
  BuildPanels();
  LayOut();
  Wire();
  Idiomas(*this, session_.language);
  txtTitulo_->setFocus();
}

void dlgTituloGrafico::BuildPanels() {
  txtTitulo_ = new QLineEdit(this);
  txtTitulo_->setObjectName(QStringLiteral("txtTitulo"));
  txtTitulo_->setMinimumWidth(kBoxWidth);
  ok_ = new QPushButton(QStringLiteral("OK"), this);
  ok_->setObjectName(QStringLiteral("OKButton"));
  ok_->setDefault(true);
  cancel_ = new QPushButton(this);
  cancel_->setObjectName(QStringLiteral("CancelButton"));
}

void dlgTituloGrafico::LayOut() {
  auto* const frame = new QGroupBox(this);
  frame->setObjectName(QStringLiteral("frameNomeGraf"));
  auto* const inside = new QVBoxLayout(frame);
  inside->addWidget(txtTitulo_);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok_);
  buttons->addWidget(cancel_);
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  whole->setSpacing(kSpacing);
  whole->addWidget(frame);
  whole->addLayout(buttons);
  whole->setSizeConstraint(QLayout::SetFixedSize);
}

void dlgTituloGrafico::Wire() {
  connect(ok_, &QPushButton::clicked, this, &dlgTituloGrafico::accept);
  connect(cancel_, &QPushButton::clicked, this, &dlgTituloGrafico::reject);
}

void dlgTituloGrafico::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  cancel_->setText(Caption(TextId::Cancel, session_.language));
  txtTitulo_->setAccessibleName(Caption(TextId::GraphName, session_.language));
}

QString dlgTituloGrafico::Title() const {
  return txtTitulo_->text().trimmed();
}

}  // namespace velmora

#include "app/charts/dlgTituloGrafico.h"

#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

constexpr int kBoxWidth = 320;  // px

}  // namespace

dlgTituloGrafico::dlgTituloGrafico(const Session& session, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("dlgTituloGrafico"));
  auto* const frame = Named<QGroupBox>("frameNomeGraf", this);
  txtTitulo_ = Named<QLineEdit>("txtTitulo", frame);
  txtTitulo_->setMinimumWidth(kBoxWidth);
  auto* const inside = new QVBoxLayout(frame);
  inside->addWidget(txtTitulo_);
  connect(LayOutDialog(*this, *frame), &QPushButton::clicked, this, &QDialog::accept);
  Idiomas(*this, session.language);
  txtTitulo_->setFocus();
}

QString dlgTituloGrafico::Title() const {
  return txtTitulo_->text().trimmed();
}

}  // namespace velmora

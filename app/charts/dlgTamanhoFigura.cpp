#include "app/charts/dlgTamanhoFigura.h"

#include <QGridLayout>
#include <QPushButton>
#include <QSpinBox>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

// A picture of the largest size takes 400 MB while it is drawn.
constexpr int kLeastWidth = 20, kMostWidth = 500, kUsualWidth = 160;  // mm
constexpr int kLeastDpi = 72, kMostDpi = 600, kUsualDpi = 300;

}  // namespace

dlgTamanhoFigura::dlgTamanhoFigura(const Session& session, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("dlgTamanhoFigura"));
  auto* const frame = Named<QGroupBox>("frameTamanho", this);
  auto* const grid = new QGridLayout(frame);
  grid->setHorizontalSpacing(kDialogSpacing);
  const auto add = [&](const char* label, const char* name, int row, int least, int most) {
    auto* const caption = Named<QLabel>(label, frame);
    auto* const box = Named<QSpinBox>(name, frame);
    caption->setBuddy(box);
    box->setRange(least, most);
    grid->addWidget(caption, row, 0);
    grid->addWidget(box, row, 1);
    return box;
  };
  txtLargura_ = add("lblLargura", "txtLargura", 0, kLeastWidth, kMostWidth);
  txtResolucao_ = add("lblResolucao", "txtResolucao", 1, kLeastDpi, kMostDpi);
  txtLargura_->setValue(kUsualWidth);
  txtResolucao_->setValue(kUsualDpi);
  connect(LayOutDialog(*this, *frame), &QPushButton::clicked, this, &QDialog::accept);
  Idiomas(*this, session.language);
  txtLargura_->setFocus();
}

double dlgTamanhoFigura::Width() const {
  return txtLargura_->value();
}

double dlgTamanhoFigura::Resolution() const {
  return txtResolucao_->value();
}

}  // namespace velmora

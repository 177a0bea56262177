#include "app/shell/frmSobre.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/shell/GrowthCurveView.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

/// A line of the window, in the order in which they stand.
struct Line {
  const char* name;
  bool startsGroup;
  double scale;  // of the window's letters
};
constexpr Line kLines[] = {
    {"lblOrganizacao", false, 2}, {"lblDedPrograma", false, 1}, {"lblVersao", false, 1},
    {"lblAreaEstudo", true, 1},   {"lblIntegracao", false, 1},  {"lblBusca", false, 1},
    {"lblAutores", true, 1},      {"lblEquipe", false, 1},      {"lblFerramenta", false, 1}};

QLabel* NewLine(const Line& line, QWidget* parent) {
  auto* const label = Named<QLabel>(line.name, parent);
  QFont font = label->font();
  font.setPointSizeF(line.scale * font.pointSizeF());
  font.setBold(line.scale > 1);
  label->setFont(font);
  return label;
}

}  // namespace

frmSobre::frmSobre(const Session& session, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmSobre"));
  LayOut();
  Idiomas(*this, session.language);
}

void frmSobre::LayOut() {
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(6);
  for (const Line& line : kLines) {
    if (line.startsGroup) texts->addSpacing(12);
    texts->addWidget(NewLine(line, this));
  }
  texts->addStretch();

  auto* const upper = new QHBoxLayout;
  upper->setSpacing(kDialogMargin);
  upper->addWidget(new GrowthCurveView(this), 0, Qt::AlignTop);
  upper->addLayout(texts, 1);

  auto* const close = Named<QPushButton>("cmdFechar", this);
  close->setText(QStringLiteral("OK"));
  close->setDefault(true);
  connect(close, &QPushButton::clicked, this, &frmSobre::close);

  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, kDialogMargin);
  whole->setSpacing(kDialogMargin);
  whole->addLayout(upper);
  whole->addWidget(close, 0, Qt::AlignRight);
  whole->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace velmora

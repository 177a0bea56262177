#include "app/experiments/HeaderPanel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "app/experiments/DescriptionBox.h"
#include "app/experiments/WholeNumberBox.h"

namespace velmora {
namespace {

template <typename Box = QLineEdit>
Box* NamedBox(const QString& name, QWidget* parent) {
  auto* const box = new Box(parent);
  box->setObjectName(name);
  return box;
}

}  // namespace

HeaderPanel::HeaderPanel(char separator, QWidget* parent)
    : QWidget(parent),
      entry_(separator),
      number_(NamedBox(QStringLiteral("txtExp"), this)),
      points_(NamedBox(QStringLiteral("txtNumPontos"), this)),
      finalTime_(NamedBox(QStringLiteral("txtTFinal"), this)),
      description_(NamedBox<DescriptionBox>(QStringLiteral("txtComentario"), this)) {
  LayOut();
  Wire();
}

void HeaderPanel::LayOut() {
  auto* const layout = new QGridLayout(this);
  layout->setContentsMargins({});
  layout->setVerticalSpacing(2);
  Place(*layout, *number_, QStringLiteral("lblNumExp"), 0, 0);
  Place(*layout, *points_, QStringLiteral("lblNumPontos"), 0, 1);
  Place(*layout, *finalTime_, QStringLiteral("lblTFinal"), 0, 2);
  Place(*layout, *description_, QStringLiteral("lblDescricao"), 2, 0);
}

void HeaderPanel::Place(QGridLayout& layout, QLineEdit& box, const QString& label, int row,
                        int column) {
  auto* const caption = new QLabel(this);
  caption->setObjectName(label);
  caption->setBuddy(&box);
  const int columns = &box == description_ ? 3 : 1;
  layout.addWidget(caption, row, column, 1, columns);
  layout.addWidget(&box, row + 1, column, 1, columns);
}

void HeaderPanel::Wire() {
  LimitToWholeNumbers(*number_, 0, kMostPoints);
  LimitToWholeNumbers(*points_, 0, kMostPoints);
  entry_.Watch(*finalTime_);
  for (const QLineEdit* const box : {number_, finalTime_, description_})
    connect(box, &QLineEdit::textEdited, this, &HeaderPanel::Edited);
  connect(points_, &QLineEdit::textEdited, this, &HeaderPanel::PointsEdited);
  connect(points_, &QLineEdit::editingFinished, this, &HeaderPanel::PointsLeft);
}

void HeaderPanel::SetHeader(const ExperimentHeader& header) {
  number_->setText(QString::fromStdString(header.number));
  finalTime_->setText(QString::fromStdString(header.finalTime));
  description_->setText(QString::fromStdString(header.description));
  description_->setCursorPosition(0);
}

ExperimentHeader HeaderPanel::Header() const {
  return {number_->text().toStdString(), description_->text().toStdString(),
          finalTime_->text().toStdString()};
}

void HeaderPanel::SetPoints(int count) {
  points_->setText(QString::number(count));
}

void HeaderPanel::Clear() {
  for (QLineEdit* const box : {number_, points_, finalTime_, description_}) box->clear();
}

std::optional<int> HeaderPanel::Points() const {
  bool whole = false;
  const int count = points_->text().toInt(&whole);
  return whole ? std::optional(count) : std::nullopt;
}

void HeaderPanel::GoTo(EntryBox box) {
  QLineEdit& wanted = box == EntryBox::FinalTime ? *finalTime_ : *number_;
  wanted.setFocus();
  wanted.selectAll();
}

}  // namespace velmora

#include "app/charts/LegendView.h"

#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "app/charts/Markers.h"

namespace velmora {
namespace {

constexpr int kPictureSize = 14;
constexpr int kRowsInAColumn = 9;
constexpr int kCellsInARow = 4;

QString LatinText(std::string_view text) {
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

LegendView::LegendView(QString imageFolder, QWidget* parent)
    : QFrame(parent), imageFolder_(std::move(imageFolder)) {
  setObjectName(QStringLiteral("picLegenda"));
  setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  heading_ = new QLabel(this);
  heading_->setObjectName(QStringLiteral("Label15"));
  heading_->setWordWrap(true);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(6, 4, 6, 4);
  column->setSpacing(4);
  column->addWidget(heading_);
  rows_ = new QGridLayout;
  rows_->setHorizontalSpacing(6);
  rows_->setVerticalSpacing(2);
  column->addLayout(rows_);
  column->addStretch();
}

void LegendView::SetRows(const std::vector<LegendRow>& rows) {
  while (QLayoutItem* item = rows_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (std::size_t i = 0; i < std::min(rows.size(), kMostLegendRows); ++i) {
    const int row = static_cast<int>(i) % kRowsInAColumn;
    const int cell = static_cast<int>(i) / kRowsInAColumn * kCellsInARow;
    const auto add = [&](int offset, const char* name) {
      auto* label = new QLabel(this);
      label->setObjectName(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i));
      rows_->addWidget(label, row, cell + offset);
      return label;
    };
    if (i + 1 == kMostLegendRows && rows.size() > kMostLegendRows) {
      add(3, "Label7")->setText(QStringLiteral("..."));
      break;
    }
    add(0, "Image1")->setPixmap(MarkerPicture(rows[i].marker));
    add(1, "Image2")->setPixmap(ColourSample(rows[i]));
    if (!rowWord_.isEmpty()) add(2, "Label13")->setText(rowWord_);
    add(3, "Label7")->setText(QString::number(rows[i].number));
  }
}

QPixmap LegendView::Picture(const QString& file, int size) const {
  const QPixmap picture(imageFolder_ + QLatin1Char('/') + file + QStringLiteral(".bmp"));
  if (picture.isNull()) return {};
  return picture.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

int LegendView::PictureSize() const {
  return static_cast<int>(std::lround(kPictureSize * devicePixelRatioF()));
}

QPixmap LegendView::Sharp(QPixmap picture) const {
  picture.setDevicePixelRatio(devicePixelRatioF());
  return picture;
}

QPixmap LegendView::MarkerPicture(const std::string& marker) const {
  const QPixmap picture = Picture(
      QStringLiteral("Imagens_Marcador/") + LatinText(MarkerPictureName(marker)), PictureSize());
  return Sharp(picture.isNull() ? MarkerPixmap(marker, PictureSize()) : picture);
}

QPixmap LegendView::ColourSample(const LegendRow& row) const {
  if (row.ink) {
    QPixmap sample(PictureSize(), PictureSize());
    sample.fill(QColor(row.ink->red, row.ink->green, row.ink->blue));
    return Sharp(sample);
  }
  const std::int32_t colour = row.colour;
  const std::size_t index = static_cast<std::size_t>(
      std::clamp(colour, 1, static_cast<std::int32_t>(kColours.size())) - 1);
  const QPixmap picture =
      Picture(QStringLiteral("Imagens_Cores/") + LatinText(kColours[index].name), PictureSize());
  return Sharp(picture.isNull() ? ColourPixmap(colour, PictureSize()) : picture);
}

void LegendView::mousePressEvent(QMouseEvent* event) {
  grabbedAt_ = event->position().toPoint();
}

void LegendView::mouseMoveEvent(QMouseEvent* event) {
  const bool placed = parentWidget() != nullptr && parentWidget()->layout() != nullptr &&
                      parentWidget()->layout()->indexOf(this) >= 0;
  if (!(event->buttons() & Qt::LeftButton) || placed || parentWidget() == nullptr) return;
  const QPoint wanted = mapToParent(event->position().toPoint() - grabbedAt_);
  move(std::clamp(wanted.x(), 0, std::max(0, parentWidget()->width() - width())),
       std::clamp(wanted.y(), 0, std::max(0, parentWidget()->height() - height())));
}

}  // namespace velmora

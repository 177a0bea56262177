#include "app/experiments/EntryPanel.h"

#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/experiments/ExperimentGridView.h"
#include "app/experiments/HeaderPanel.h"

namespace velmora {
namespace {

constexpr int kLeastWidth = 448, kMostWidth = 540;  // px

}  // namespace

EntryPanel::EntryPanel(char separator, QWidget* parent)
    : QGroupBox(parent),
      separator_(separator),
      header_(new HeaderPanel(separator, this)),
      grid_(new ExperimentGridView(separator, this)) {
  setObjectName(QStringLiteral("Frame4"));
  setMinimumWidth(kLeastWidth);
  setMaximumWidth(kMostWidth);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(header_);
  layout->addWidget(grid_, 1);
  Wire();
}

void EntryPanel::Wire() {
  connect(header_, &HeaderPanel::Edited, this, [this] { edited_ = true; });
  connect(header_, &HeaderPanel::PointsEdited, this, &EntryPanel::PointsEdited);
  connect(header_, &HeaderPanel::PointsLeft, this, &EntryPanel::ShowPoints);
  connect(grid_, &ExperimentGridView::Edited, this, [this] {
    edited_ = true;
    ShowPoints();
  });
  connect(grid_, &ExperimentGridView::Refused, this, &EntryPanel::Refused);
}

void EntryPanel::PointsEdited() {
  edited_ = true;
  if (const std::optional<int> points = header_->Points()) grid_->SetRowCount(*points);
}

void EntryPanel::ShowPoints() {
  const int rows = static_cast<int>(grid_->Rows().size());
  if (header_->Points() != rows) header_->SetPoints(rows);
}

void EntryPanel::SetEntry(const ExperimentHeader& header, std::vector<GridRow> rows) {
  header_->SetHeader(header);
  grid_->SetRows(std::move(rows));
  ShowPoints();
  edited_ = false;
}

void EntryPanel::Clear() {
  SetEntry({}, std::vector<GridRow>(1));
  header_->Clear();
}

EntryRead EntryPanel::Entry() const {
  return ReadEntry(header_->Header(), grid_->Rows(), separator_);
}

bool EntryPanel::Unsaved() const {
  const auto rows = grid_->Rows();
  return edited_ && (!std::all_of(rows.begin(), rows.end(), IsEmpty) ||
                     !header_->Header().description.empty());
}

void EntryPanel::GoTo(const EntryRead::Refusal& refusal) {
  if (refusal.box == EntryBox::Cell)
    grid_->GoTo(refusal.cell);
  else
    header_->GoTo(refusal.box);
}

}  // namespace velmora

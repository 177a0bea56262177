#include "app/experiments/EntryPanel.h"

#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <span>
#include <utility>

#include "app/experiments/ExperimentGridView.h"
#include "app/experiments/HeaderPanel.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr int kLeastWidth = 448, kMostWidth = 540;  // px

/// The first cell in which `after` differs, or its last row where it has fewer; nothing where both
/// agree.
std::optional<GridCell> FirstChange(std::span<const GridRow> before,
                                    std::span<const GridRow> after) {
  const auto [old, changed] =
      std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const int row = static_cast<int>(changed - after.begin());
  if (changed == after.end()) {
    if (old == before.end() || after.empty()) return std::nullopt;
    return GridCell{row - 1, 0};
  }
  if (old == before.end()) return GridCell{row, 0};
  const auto cell = std::mismatch(old->begin(), old->end(), changed->begin()).second;
  return GridCell{row, static_cast<int>(cell - changed->begin())};
}

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
  connect(header_, &HeaderPanel::Edited, this, &EntryPanel::Note);
  connect(header_, &HeaderPanel::PointsEdited, this, &EntryPanel::PointsEdited);
  connect(header_, &HeaderPanel::PointsLeft, this, &EntryPanel::ShowPoints);
  connect(grid_, &ExperimentGridView::Edited, this, [this](int cell) {
    ShowPoints();
    Note(cell);
  });
  connect(grid_, &ExperimentGridView::Refused, this, &EntryPanel::Refused);
}

void EntryPanel::Note(int place) {
  edited_ = true;
  MarkFinalTime();
  emit Edited(place);
}

void EntryPanel::PointsEdited(int box) {
  if (const std::optional<int> points = header_->Points()) grid_->SetRowCount(*points);
  Note(box);
}

void EntryPanel::ShowPoints() {
  const int rows = static_cast<int>(grid_->Rows().size());
  if (header_->Points() != rows) header_->SetPoints(rows);
}

void EntryPanel::SetEntry(const ExperimentHeader& header, std::vector<GridRow> rows) {
  header_->SetHeader(header);
  grid_->SetRows(std::move(rows));
  ShowPoints();
  MarkFinalTime();
  edited_ = false;
}

void EntryPanel::SetLanguage(Language language) {
  header_->SetLanguage(language);
  grid_->SetLanguage(language);
}

void EntryPanel::MarkFinalTime() {
  const std::string text = header_->Header().finalTime;
  const std::optional<double> finalTime = ReadBox(text, separator_);
  std::optional<double> last;
  for (const GridRow& row : grid_->Rows())
    if (const std::optional<double> time = CellNumber(row.front()))
      last = std::max(last.value_or(*time), *time);
  header_->MarkFinalTime(!text.empty() && finalTime && last && *finalTime < *last);
}

void EntryPanel::Clear() {
  SetEntry({}, std::vector<GridRow>(1));
  header_->Clear();
}

EntryRead EntryPanel::Entry() const {
  return ReadEntry(header_->Header(), grid_->Rows(), separator_);
}

void EntryPanel::SetDraft(const ExperimentDraft& draft) {
  const QModelIndex current = grid_->currentIndex();
  const GridCell changed =
      FirstChange(grid_->Rows(), draft.rows).value_or(GridCell{current.row(), current.column()});
  SetEntry(draft.header, draft.rows);
  if (changed.row < static_cast<int>(draft.rows.size()))
    grid_->setCurrentIndex(grid_->model()->index(changed.row, changed.column));
  edited_ = draft.edited;
}

ExperimentDraft EntryPanel::Draft() const {
  const auto rows = grid_->Rows();
  return {header_->Header(), {rows.begin(), rows.end()}, 0, edited_};
}

void EntryPanel::GoTo(const EntryRead::Refusal& refusal) {
  if (refusal.box == EntryBox::Cell)
    grid_->GoTo(refusal.cell);
  else
    header_->GoTo(refusal.box);
}

}  // namespace velmora

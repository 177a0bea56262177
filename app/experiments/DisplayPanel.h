// One row of display choosers for each place 1..9 of the experiment list.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "data/Experiment.h"
#include "language/Texts.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QToolButton;

namespace velmora {

class DisplayPanel : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kRows = 9;

  explicit DisplayPanel(QWidget* parent = nullptr);

  /// Names the choosers and their pictures for screen readers, the choosers by their captions.
  void NameControls(Language language);
  /// Shows the experiments' numbers, place by place, and marks the one at `shown` (0: none). The
  /// rows behind them but for the next one, which is for a new experiment, cannot be used. Places
  /// for which there is no row are chosen from a list.
  void SetExperiments(const std::vector<std::int16_t>& numbers, int shown);
  /// Sets the choosers at `place`, 1..kRows. A value that no chooser offers is kept as it is.
  void SetDisplay(int place, const DisplayEntry& display);
  const DisplayEntry& Display(int place) const;

 signals:
  void Edited();
  /// The experiment at `place` is to be shown.
  void ShowWanted(int place);

 private:
  struct Row {
    QToolButton* number = nullptr;
    QComboBox* marker = nullptr;
    QComboBox* line = nullptr;
    QComboBox* colour = nullptr;
    QCheckBox* visible = nullptr;
    DisplayEntry display;
  };

  void BuildRow(int place);
  void LayOut();
  void LayOutCaptions(QGridLayout& layout);
  void Wire();
  Row& At(int place) { return rows_[static_cast<std::size_t>(place) - 1]; }
  const Row& At(int place) const { return rows_[static_cast<std::size_t>(place) - 1]; }

  std::array<Row, static_cast<std::size_t>(kRows)> rows_;
  QComboBox* others_;  // the places behind the rows
  QLabel* numberCaption_;
  QLabel* markerCaption_;
};

}  // namespace velmora

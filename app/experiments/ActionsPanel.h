// The buttons of the experiments window, and the place to be deleted.
#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <vector>

#include "language/Texts.h"

class QBoxLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class QToolButton;

namespace velmora {

enum class ExperimentAction : std::uint8_t {
  Insert,
  Save,
  Clear,
  ViewGraphs,
  GridLines,
  Legend,
  Delete,
  NextStep,
};

class ActionsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ActionsPanel(QWidget* parent = nullptr);

  /// Shows whether the plots have grid lines and whether the legend is shown.
  void SetShown(bool gridLines, bool legend);
  /// The experiments' numbers by place, by which the place to be deleted is explained.
  void SetExperiments(std::vector<std::int16_t> numbers);
  void SetLanguage(Language language);
  /// Leaves out what the next step is, which its button tells as well, and the question whether to
  /// delete, which its answers then tell.
  void SetShort(bool withoutStep, bool withoutQuestion);
  /// The typed place; 0 where the box holds no number.
  int PlaceToDelete() const;
  void GoToPlace();
  /// Takes back the wish to delete an experiment.
  void EndDeleting();

 signals:
  void Wanted(velmora::ExperimentAction action);

 private:
  void BuildButtons();
  void LayOut();
  void Wire();
  QBoxLayout* DeletionRow();
  QToolButton& Button(ExperimentAction action) const;
  void ShowDeleting();
  /// Says which experiment stands at the typed place.
  void ExplainPlace();

  std::array<QToolButton*, 8> buttons_{};
  std::array<QRadioButton*, 2> deleting_{};  // Option1: no, yes
  QLabel* nextStep_;
  QLabel* question_;
  QLineEdit* place_;
  std::vector<std::int16_t> numbers_;
  Language language_ = Language::English;
};

}  // namespace velmora

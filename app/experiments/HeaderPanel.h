// The boxes above the entry grid: number, points, final time, description.
#pragma once

#include <QWidget>
#include <optional>

#include "app/widgets/NumberEntry.h"
#include "data/ExperimentEntry.h"

class QGridLayout;
class QAction;
class QLineEdit;

namespace velmora {

class DescriptionBox;

class HeaderPanel : public QWidget {
  Q_OBJECT

 public:
  /// `separator` is the locale's decimal separator, '.' or ','.
  explicit HeaderPanel(char separator, QWidget* parent = nullptr);

  void SetHeader(const ExperimentHeader& header);
  ExperimentHeader Header() const;
  void SetPoints(int count);
  /// Marks the final time as one before the last sample, or takes the mark back.
  void MarkFinalTime(bool early);
  void SetLanguage(Language language);
  /// Empties all boxes.
  void Clear();
  /// The typed number of points; nothing where the box is empty.
  std::optional<int> Points() const;
  /// Gives the box the focus, its text selected.
  void GoTo(EntryBox box);

 signals:
  /// `box`, below -1, is a number of the box in which something was typed.
  void Edited(int box);
  void PointsEdited(int box);
  /// The user is done with the box of the number of points.
  void PointsLeft();

 private:
  void LayOut();
  void Wire();
  /// Puts a box with its caption above it into the layout.
  void Place(QGridLayout& layout, QLineEdit& box, const char* label, int row, int column);

  NumberEntry entry_;
  QLineEdit* number_;
  QLineEdit* points_;
  QLineEdit* finalTime_;
  DescriptionBox* description_;
  QAction* early_;
};

}  // namespace velmora

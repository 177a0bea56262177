// The experiment being entered: the boxes and the grid, which agree on the number of points.
#pragma once

#include <QGroupBox>
#include <vector>

#include "data/ExperimentEntry.h"
#include "session/Session.h"

namespace velmora {

class ExperimentGridView;
class HeaderPanel;

class EntryPanel : public QGroupBox {
  Q_OBJECT

 public:
  /// `separator` is the locale's decimal separator, '.' or ','.
  explicit EntryPanel(char separator, QWidget* parent = nullptr);

  /// Shows what is saved or empty; the user has changed nothing of it yet.
  void SetEntry(const ExperimentHeader& header, std::vector<GridRow> rows);
  /// Shows what was being entered.
  void SetDraft(const ExperimentDraft& draft);
  /// What is being entered; the place it belongs to is the window's to know.
  ExperimentDraft Draft() const;
  /// Empties the boxes and the grid.
  void Clear();
  EntryRead Entry() const;
  /// Gives the box or cell that was refused the focus.
  void GoTo(const EntryRead::Refusal& refusal);
  void SetLanguage(Language language);
  ExperimentGridView& Grid() { return *grid_; }

 signals:
  /// The user has changed something; steps in a row with one `place`, not 0, type into one cell or
  /// box.
  void Edited(int place);
  /// A pasted block was refused; nothing changed.
  void Refused(const velmora::Message& message);

 private:
  void Wire();
  void Note(int place);
  void PointsEdited(int box);
  void ShowPoints();
  /// Marks a final time before the last sample.
  void MarkFinalTime();

  char separator_;
  HeaderPanel* header_;
  ExperimentGridView* grid_;
  bool edited_ = false;
};

}  // namespace velmora

// The boxes of one experiment's conditions: start, yields, maintenance and death, production.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "app/widgets/NumberEntry.h"
#include "cultivation/CultivationForm.h"
#include "language/Texts.h"

class QGroupBox;
class QLabel;

namespace velmora {

class OptionGroup;

class ConditionsPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ConditionsPanel(QWidget* parent = nullptr);

  /// Shows the form's boxes of this panel and its yields.
  void SetForm(const CultivationForm& form);
  /// Writes the boxes and the yields into the form.
  void ReadInto(CultivationForm& form) const;
  /// Shows one box's number; a position that has no box here is passed over.
  void SetBox(At position, const Entry& entry, NumberBox::Mark mark = NumberBox::Mark::None,
              const QString& why = {});
  /// The production decides which constants are entered.
  void SetProduction(Production production);
  void Clear();
  void SetLanguage(Language language);
  /// Goes to the box of `position`; false where this panel has none.
  bool FocusBox(At position);

 signals:
  void Edited();

 private:
  struct Box {
    At position;
    NumberBox* box;
    QLabel* label;
    QLabel* unit;
  };

  void Build();
  void LayOut();
  void Wire();
  Yields ChosenYields() const;
  void AllowEntry();
  /// Says of a constant that is not asked for, but not 0, that it still enters the calculation.
  void ExplainConstants();
  const Box* Find(At position) const;

  static constexpr int kFrames = 4;
  std::array<QGroupBox*, kFrames> frames_{};
  std::vector<Box> boxes_;  // in the order of the table
  OptionGroup* yields_ = nullptr;
  Production production_ = Production::None;
  Language language_ = Language::Portuguese;
};

}  // namespace velmora

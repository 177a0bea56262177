// What is done with the cultivation: fitting method, data set and production kinetics.
#pragma once

#include <QWidget>
#include <array>

#include "cultivation/CultivationForm.h"

class QCheckBox;
class QGroupBox;
class QToolButton;

namespace velmora {

class OptionGroup;

/// The choices that are the same for all experiments. Once they are fixed each group is unlocked by
/// its own button.
class ChoicesPanel : public QWidget {
  Q_OBJECT

 public:
  explicit ChoicesPanel(QWidget* parent = nullptr);

  /// Shows the form's choices.
  void SetForm(const CultivationForm& form);
  /// Writes the choices into the form.
  void ReadInto(CultivationForm& form) const;
  /// Fixes all three groups, or frees them. A group in which nothing is chosen stays free.
  void SetFixed(bool fixed);

 signals:
  void Edited();

 private:
  /// A frame of options beside the button that unlocks them.
  struct Group {
    QGroupBox* frame = nullptr;
    QWidget* options = nullptr;
    QToolButton* unlock = nullptr;

    void SetFixed(bool fixed);
    bool HasChoice() const;
  };

  void Build();
  void LayOut();
  void Wire();

  std::array<Group, 3> groups_;  // method, data set, production
  OptionGroup* methods_ = nullptr;
  OptionGroup* productions_ = nullptr;
  std::array<QCheckBox*, 3> data_{};  // Cp, Cs, Cx
};

}  // namespace velmora

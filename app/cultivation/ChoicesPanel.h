// What is done with the cultivation: fitting method, data set and production kinetics.
#pragma once

#include <QButtonGroup>
#include <QWidget>
#include <array>

#include "cultivation/CultivationForm.h"
#include "language/Texts.h"

class QCheckBox;
class QGroupBox;
class QToolButton;

namespace velmora {

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
  void SetLanguage(Language language);

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
  Group NewGroup(const QString& frame, const QString& unlock);
  std::array<Group*, 3> Groups() { return {&method_, &dataSet_, &production_}; }

  Group method_;
  Group dataSet_;
  Group production_;
  QButtonGroup methods_;              // ids are those of Method
  QButtonGroup productions_;          // ids are those of Production
  std::array<QCheckBox*, 3> data_{};  // Cx, Cs, Cp
};

}  // namespace velmora

// The panels of choices, model, conditions and parameters as one form.
#pragma once

#include <QObject>
#include <QString>
#include <array>
#include <utility>
#include <vector>

#include "app/widgets/NumberEntry.h"
#include "cultivation/CultivationForm.h"
#include "language/Texts.h"

class QWidget;

namespace velmora {

class ChoicesPanel;
class ConditionsPanel;
class ModelPanel;
class ParametersPanel;

/// The parameter's name as it is spoken of: "Ks".
QString SpokenName(At position);

/// Owns what the four panels say to each other: production decides which constants are entered,
/// the model which parameters there are. Knows what was last stored, and so whether the user has
/// changed anything since.
class FormEntry : public QObject {
  Q_OBJECT

 public:
  explicit FormEntry(QWidget* parent);

  /// The panels, for the window to lay out.
  QWidget* Choices() const;
  QWidget* Model() const;
  QWidget* Conditions() const;
  QWidget* Parameters() const;

  /// Shows a stored form. `model` is shown as confirmed; where it is null the model chosen before
  /// waits to be confirmed.
  void SetStored(const CultivationForm& form, const velmora::Model* model);
  /// What is entered.
  CultivationForm Form() const;

  /// Whether the user has not edited the box since.
  bool Untouched(At position) const;
  /// Shows one number. It changes what counts as stored, unless the user has edited the box.
  void SetBox(At position, const Entry& entry, NumberBox::Mark mark = NumberBox::Mark::None);
  /// Shows proposals in place of what is entered; those of `why` are marked as such, with the
  /// reason.
  void SetProposed(const CultivationForm& form, const std::vector<std::pair<At, QString>>& why);
  /// Shows another model, which waits to be stored.
  void SetModel(const velmora::Model& model);
  /// Marks the parameter's number, which stays; `why` is told in its tool tip.
  void Mark(At position, NumberBox::Mark mark, const QString& why);
  /// What is entered now is what is stored.
  void MarkStored();
  /// Whether the user has changed something since.
  bool Changed() const;

  /// Fixes method, data set and production.
  void SetFixed(bool fixed);
  void SetEnabled(bool enabled);
  /// Empties every box and takes back every tick.
  void Clear();
  void SetLanguage(Language language);
  /// The panel in which the box of `position` stands.
  QWidget& PanelOf(At position) const;
  /// Goes to the box that a refusal is about.
  void Focus(At position);

 signals:
  void Edited();

 private:
  void Wire();
  std::array<QWidget*, 4> Panels() const;

  ChoicesPanel* choices_;
  ModelPanel* model_;
  ConditionsPanel* conditions_;
  ParametersPanel* parameters_;
  CultivationForm stored_;
};

}  // namespace velmora

// The ten kinetic parameters as one table: fitted or not, value, bounds, unit.
#pragma once

#include <QGroupBox>
#include <array>
#include <string>

#include "app/widgets/NumberEntry.h"
#include "cultivation/CultivationForm.h"
#include "language/Texts.h"

class QCheckBox;
class QLabel;

namespace velmora {

class ParametersPanel : public QGroupBox {
  Q_OBJECT

 public:
  using FitRows = std::array<FitRow, kFittable.size()>;

  explicit ParametersPanel(QWidget* parent = nullptr);

  /// Enables the parameters that the model uses, and unticks the others.
  void SetModel(const Model& model);
  /// Shows the values of a form.
  void SetValues(const CultivationForm& form);
  /// Shows ticks and bounds. Only parameters of the model are ticked.
  void SetFit(const FitRows& fit);
  /// Shows one value; `position` must be that of a fittable parameter.
  void SetValue(At position, const Entry& entry, NumberBox::Mark mark, const QString& why = {});
  /// Marks those of a parameter's bounds as proposed that are others than `before`.
  void MarkBounds(At position, const FitRow& before, const QString& why);
  /// Writes values, ticks and bounds into the form.
  void ReadInto(CultivationForm& form) const;
  void Clear();
  void SetLanguage(Language language);
  /// Goes to the first box of the parameter's row that is empty or 0, or to its value; false where
  /// `position` is none of the parameters.
  bool FocusRow(At position);

 signals:
  void Edited();

 private:
  /// Says what bounds do, and of those that no tick calls for that they have no effect.
  void ExplainBounds();
  struct Row {
    QCheckBox* tick = nullptr;
    QLabel* name = nullptr;
    NumberBox* value = nullptr;
    NumberBox* lower = nullptr;
    NumberBox* upper = nullptr;
    QLabel* unit = nullptr;

    std::array<QWidget*, 6> All() const;
  };

  Row NewRow(std::size_t index);
  void LayOut();
  void Wire();

  std::array<Row, kFittable.size()> rows_;  // in the order of kFittable
  Language language_ = Language::Portuguese;
};

}  // namespace velmora

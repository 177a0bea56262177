// The growth model: chosen from the list, confirmed with the green button, then fixed.
#pragma once

#include <QGroupBox>

#include "kinetics/Modelos.h"
#include "language/Texts.h"

class QComboBox;
class QLabel;
class QToolButton;

namespace velmora {

class ModelPanel : public QGroupBox {
  Q_OBJECT

 public:
  explicit ModelPanel(QWidget* parent = nullptr);

  /// Shows a model, confirmed or still to be confirmed.
  void SetModel(const Model& model, bool confirmed);
  const Model& Chosen() const;
  bool Confirmed() const { return confirmed_; }
  void SetLanguage(Language language);

 signals:
  /// The user chose, confirmed or unlocked a model.
  void Edited();

 private:
  void Build();
  void LayOut();
  void Wire();
  void SetConfirmed(bool confirmed);
  /// Tells of the chosen model what it means.
  void Explain();

  Language language_ = Language::Portuguese;
  bool confirmed_ = false;
  QComboBox* list_ = nullptr;
  QToolButton* confirm_ = nullptr;
  QToolButton* unlock_ = nullptr;
  QLabel* heading_ = nullptr;
  QLabel* chosen_ = nullptr;
};

}  // namespace velmora

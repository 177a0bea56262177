// Which experiment the window shows, and how far the cultivation is.
#pragma once

#include <QGroupBox>

#include "language/Texts.h"

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace velmora {

/// Where the window stands in the experiment list.
struct ExperimentStanding {
  int place = 0;   // 1..count; 0 where no experiment is selected
  int count = 0;   // experiments in the list
  int number = 0;  // of the experiment shown
  bool saved = false;
  int savedCount = 0;  // experiments whose conditions are saved
};

class ExperimentPanel : public QGroupBox {
  Q_OBJECT

 public:
  explicit ExperimentPanel(QWidget* parent = nullptr);

  void SetStanding(const ExperimentStanding& standing);
  void SetLanguage(Language language);
  /// What is to be observed of all experiments: stands here unless it is laid out elsewhere.
  QLabel& Info() const { return *info_; }
  void TakeInfo();

 signals:
  /// The user goes on by one experiment (1) or back by one (-1).
  void StepAsked(int step);
  /// The user goes back to the experiments window.
  void BackAsked();

 private:
  void Build();
  void LayOut();
  void Wire();
  void Show();

  ExperimentStanding standing_;
  Language language_ = Language::Portuguese;
  QToolButton* back_ = nullptr;
  QToolButton* previous_ = nullptr;
  QToolButton* next_ = nullptr;
  QLineEdit* number_ = nullptr;
  QLabel* count_ = nullptr;
  QLabel* none_ = nullptr;
  QLabel* notSaved_ = nullptr;
  QLabel* savedCount_ = nullptr;
  QLabel* info_ = nullptr;
  QHBoxLayout* row_ = nullptr;
};

}  // namespace velmora

// Saving, starting, stopping; the clock and the progress of a run.
#pragma once

#include <QWidget>

#include "app/Texts.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QToolButton;

namespace velmora {

class RunPanel : public QWidget {
  Q_OBJECT

 public:
  explicit RunPanel(QWidget* parent = nullptr);

  /// While a search runs only the stop command works here.
  void SetRunning(bool running);
  /// The heading beside the clock, a text of the string table; 0 hides both.
  void SetHeading(int textId);
  /// Whether the start command simulates instead of estimating.
  void SetSimulates(bool simulates);
  void ShowSeconds(int seconds);
  void ShowProgress(int generation, int limit);
  void SetLanguage(Language language);

 signals:
  void SaveAsked();
  void StartAsked();
  void StopAsked();

 private:
  void Build();
  void LayOut();
  void Wire();
  void Show();

  Language language_ = Language::Portuguese;
  int heading_ = 0;
  bool simulates_ = false;
  QPushButton* save_ = nullptr;
  QPushButton* start_ = nullptr;
  QToolButton* stop_ = nullptr;
  QLabel* label_ = nullptr;
  QLabel* clock_ = nullptr;
  QProgressBar* progress_ = nullptr;
};

}  // namespace velmora

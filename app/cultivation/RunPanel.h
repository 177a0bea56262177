// Saving, starting, stopping; the clock and the progress of a run.
#pragma once

#include <QWidget>
#include <optional>

#include "language/Texts.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QToolButton;

namespace velmora {

/// "00:01:15"
QString ClockText(int seconds);

class RunPanel : public QWidget {
  Q_OBJECT

 public:
  explicit RunPanel(QWidget* parent = nullptr);

  /// While a search runs only the stop command works here.
  void SetRunning(bool running);
  /// Gives the keyboard to the command that works: stop while a search runs, else start.
  void TakeKeyboard();
  /// The heading beside the clock, which is hidden with it where there is none.
  void SetHeading(std::optional<TextId> heading);
  /// Whether the start command simulates instead of estimating.
  void SetSimulates(bool simulates);
  void ShowSeconds(int seconds);
  /// A limit of 0: how far it will go is not known, only that it does.
  void ShowProgress(int generation, int limit);
  void SetLanguage(Language language);

  /// Whether there are experiments to propose from, and more than one to store for.
  void SetExperiments(int count);

 signals:
  void ProposeAsked();
  void UseForAllAsked();
  void SaveAsked();
  void StartAsked();
  void StopAsked();

 private:
  void Build();
  void LayOut();
  void Wire();
  void Show();

  Language language_ = Language::Portuguese;
  std::optional<TextId> heading_;
  bool simulates_ = false;
  bool running_ = false;
  int experiments_ = 0;
  QPushButton* propose_ = nullptr;
  QPushButton* save_ = nullptr;
  QPushButton* all_ = nullptr;
  QPushButton* start_ = nullptr;
  QToolButton* stop_ = nullptr;
  QLabel* label_ = nullptr;
  QLabel* clock_ = nullptr;
  QProgressBar* progress_ = nullptr;
};

}  // namespace velmora

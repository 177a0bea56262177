// The results of a run as text, and what can be done with them.
#pragma once

#include <QGroupBox>
#include <cstdint>
#include <string>

#include "language/Texts.h"

class QPlainTextEdit;
class QToolButton;

namespace velmora {

class ResultsPanel : public QGroupBox {
  Q_OBJECT

 public:
  /// Where the toggle button leads.
  enum class Direction : std::uint8_t { ToInitial, ToEstimated };

  explicit ResultsPanel(QWidget* parent = nullptr);

  /// Adds to the end of the text. A user who has scrolled up keeps the place.
  void Append(const std::string& text);
  void Clear();
  /// Whether there are results to report and estimated values to bring back.
  void SetAvailable(bool available);
  void SetDirection(Direction direction);
  /// While a search runs the text can only be looked at.
  void SetRunning(bool running);
  void SetLanguage(Language language);

 signals:
  void ToggleAsked();
  void ReportAsked();

 private:
  void Build();
  void LayOut();
  void Wire();
  void Show();

  Language language_ = Language::Portuguese;
  Direction direction_ = Direction::ToInitial;
  bool available_ = false;
  bool running_ = false;
  QPlainTextEdit* text_ = nullptr;
  QToolButton* clear_ = nullptr;
  QToolButton* toggle_ = nullptr;
  QToolButton* report_ = nullptr;
};

}  // namespace velmora

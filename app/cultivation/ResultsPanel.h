// The results of a run as text, and what can be done with them.
#pragma once

#include <QGroupBox>
#include <cstdint>
#include <string>
#include <vector>

#include "app/cultivation/SummaryText.h"
#include "language/Texts.h"

class QPlainTextEdit;
class QPushButton;
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
  /// Says above the text where the fit stands; with no lines nothing stands there.
  void ShowSummary(std::vector<SummaryLine> lines);
  bool ShowsSummary() const;
  /// Whether there are results to report and estimated values to bring back.
  void SetAvailable(bool available);
  /// Whether models can be compared.
  void SetComparable(bool comparable);
  void SetDirection(Direction direction);
  /// Whether what stood in the boxes before a model was taken over can come back.
  void SetReturnable(bool returnable);
  /// While a search runs the text can only be looked at.
  void SetRunning(bool running);
  void SetLanguage(Language language);
  /// Gives the keyboard to the report.
  void TakeKeyboard();

 signals:
  void ToggleAsked();
  void ReportAsked();
  void ImproveAsked();
  void CompareAsked();
  void HowSureAsked();
  void PreviousAsked();

 private:
  void Build();
  void LayOut();
  void Wire();
  void Show();

  Language language_ = Language::Portuguese;
  Direction direction_ = Direction::ToInitial;
  bool available_ = false;
  bool running_ = false;
  bool comparable_ = false;
  bool atEnd_ = true;  // the results text, of what was written last
  SummaryText* summary_ = nullptr;
  QPlainTextEdit* text_ = nullptr;
  QPushButton* improve_ = nullptr;
  QPushButton* compare_ = nullptr;
  QPushButton* howSure_ = nullptr;
  QPushButton* previous_ = nullptr;
  QToolButton* clear_ = nullptr;
  QToolButton* toggle_ = nullptr;
  QToolButton* report_ = nullptr;
};

}  // namespace velmora

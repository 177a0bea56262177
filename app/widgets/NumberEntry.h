// Boxes for numbers, and the key filter of those that take decimals.
#pragma once

#include <QLineEdit>
#include <QObject>

#include "cultivation/CultivationForm.h"

namespace velmora {

/// Lets only a well-formed decimal number into the boxes on which it is installed, whether typed,
/// pasted, dropped or composed by an input method; what is refused sounds the beep.
class NumberEntry : public QObject {
  Q_OBJECT

 public:
  /// `separator` is the locale's decimal separator, '.' or ','.
  explicit NumberEntry(char separator, QObject* parent = nullptr);

  /// From now on `box` passes its entry through the filter. The box keeps any text set from code.
  void Watch(QLineEdit& box);
  /// In which what is refused is said.
  void SetLanguage(Language language) { language_ = language; }

 signals:
  /// A key, or a text that was to be brought in, was refused.
  void Refused();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  char separator_;
  Language language_ = Language::English;
};

/// Beeps, and says at the box why `entry` is refused; {1} of the text is the entry.
void SayRefused(QWidget& box, TextId why, const QString& entry, Language language);

/// Lets only whole numbers within the bounds, both included, into `box`; what is refused sounds the
/// beep. Text set from code passes.
void LimitToWholeNumbers(QLineEdit& box, int least, int most);

/// A box that may show a number rounded. As long as its text is the one that it was given, it still
/// stands for the exact number behind it; what the user types stands for itself.
class NumberBox : public QLineEdit {
  Q_OBJECT

 public:
  enum class Mark { None, Estimated, Proposed, AtBound };

  explicit NumberBox(const QString& name, QWidget* parent = nullptr);

  /// Shows the entry's text. A marked number stands out in colour until the user edits the box; as
  /// long `why` stands in the tool tip.
  void Show(const Entry& entry, Mark mark = Mark::None, const QString& why = {});
  /// What was proposed is the user's from now on.
  void Accept();

  /// What was shown, as long as its text still stands there; else what was typed.
  Entry Value() const;

  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;

 private:
  void SetMark(Mark mark);

  Mark mark_ = Mark::None;
  QString why_;
  QString shownText_;
  Entry shown_;
};

}  // namespace velmora

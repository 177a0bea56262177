// A numeric box that shows a number rounded and keeps the number itself.
#pragma once

#include <QLineEdit>

#include "cultivation/CultivationForm.h"

namespace velmora {

/// As long as its text is the one that it was given, the box still stands for the exact number
/// behind it; what the user types stands for itself.
class NumberBox : public QLineEdit {
  Q_OBJECT

 public:
  enum class Mark { None, Estimated };

  explicit NumberBox(const QString& name, QWidget* parent = nullptr);

  /// Shows the entry's text. An estimated number stands out in colour until the user edits the box.
  void Show(const Entry& entry, Mark mark = Mark::None);

  /// What was shown, as long as its text still stands there; else what was typed.
  Entry Value() const;

  QSize sizeHint() const override;

 private:
  void SetMark(Mark mark);

  QString shownText_;
  Entry shown_;
};

}  // namespace velmora

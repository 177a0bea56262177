// A numeric box that shows a number rounded and keeps the number itself.
#pragma once

#include <QLineEdit>
#include <string>

#include "kinetics/KineticParameters.h"

namespace velmora {

/// As long as its text is the one that it was given, the box still stands for the exact number
/// behind it; what the user types stands for itself.
class NumberBox : public QLineEdit {
  Q_OBJECT

 public:
  enum class Mark { None, Estimated };

  explicit NumberBox(const QString& name, QWidget* parent = nullptr);

  /// Shows `shown` for the number with the text `exact`. An estimated number stands out in colour
  /// until the user edits the box.
  void ShowNumber(const std::string& shown, const std::string& exact, Mark mark = Mark::None);
  void ShowNumber(const std::string& text) { ShowNumber(text, text); }

  /// The text of the number that the box stands for.
  std::string Number() const;

  QSize sizeHint() const override;

 private:
  void SetMark(Mark mark);

  QString shown_;
  std::string exact_;
};

}  // namespace velmora

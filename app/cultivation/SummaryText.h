// The lines that say where a fit stands, with every digit where only the certain ones are shown.
#pragma once

#include <QPlainTextEdit>
#include <string>
#include <vector>

namespace velmora {

struct SummaryLine {
  std::string text;
  std::string number{};  // a part of the text that stands for `all`; or empty
  std::string all{};     // the same with all digits
};

/// Hovering over a line tells all digits, and what is copied has them.
class SummaryText : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit SummaryText(QWidget* parent = nullptr);

  /// Shows as many lines as there is modest room for; the others are scrolled to.
  void SetLines(std::vector<SummaryLine> lines);

 protected:
  bool viewportEvent(QEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;

 private:
  /// The line with all digits.
  QString Whole(int line) const;

  std::vector<SummaryLine> lines_;
};

}  // namespace velmora

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

  /// Takes the room of its lines at most; those that find none are scrolled to.
  void SetLines(std::vector<SummaryLine> lines);

 protected:
  bool viewportEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;

 private:
  void TakeRoom();
  /// The line with all digits.
  QString Whole(int line) const;

  std::vector<SummaryLine> lines_;
};

}  // namespace velmora

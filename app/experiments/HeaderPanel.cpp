#include "app/experiments/HeaderPanel.h"

#include <QAction>
#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QValidator>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "data/ExperimentEntry.h"

namespace velmora {
namespace {

constexpr int kFirstBox = -2;

/// Changes the box's text into one that fits.
class FittingValidator : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& cursor) const override {
    const DescriptionText fitting = FittingDescription(input.toStdString());
    const std::string before = FittingDescription(input.left(cursor).toStdString()).text;
    if (fitting.lettersLeftOut) QApplication::beep();
    input = QString::fromStdString(fitting.text);
    cursor = static_cast<int>(QString::fromStdString(before).size());
    return Acceptable;
  }
};

}  // namespace

/// Lets in only what the experiment's file can give back. A typed comma, leading blank or letter
/// outside Windows-1252 is refused with a beep; what comes in otherwise (pasted, dropped, composed)
/// is made to fit, with a beep where letters are left out.
class DescriptionBox : public QLineEdit {
 public:
  explicit DescriptionBox(QWidget* parent) : QLineEdit(parent) {
    setValidator(new FittingValidator(this));
  }
  void SetLanguage(Language language) { language_ = language; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const QString typed = event->text();
    const bool printable = !typed.isEmpty() && typed.front().isPrint();
    const int start = hasSelectedText() ? selectionStart() : cursorPosition();
    if (printable && !MayBeTyped(typed.toStdString(), start == 0))
      SayRefused(*this, TextId::LetterNotTaken, typed, language_);
    else
      QLineEdit::keyPressEvent(event);
  }

 private:
  Language language_ = Language::English;
};

HeaderPanel::HeaderPanel(char separator, QWidget* parent)
    : QWidget(parent),
      entry_(separator),
      number_(Named<QLineEdit>("txtExp", this)),
      points_(Named<QLineEdit>("txtNumPontos", this)),
      finalTime_(Named<QLineEdit>("txtTFinal", this)),
      description_(Named<DescriptionBox>("txtComentario", this)),
      early_(finalTime_->addAction(QIcon(CalmMark()), QLineEdit::TrailingPosition)) {
  early_->setVisible(false);
  LayOut();
  Wire();
}

void HeaderPanel::LayOut() {
  auto* const layout = new QGridLayout(this);
  layout->setContentsMargins({});
  layout->setVerticalSpacing(2);
  Place(*layout, *number_, "lblNumExp", 0, 0);
  Place(*layout, *points_, "lblNumPontos", 0, 1);
  Place(*layout, *finalTime_, "lblTFinal", 0, 2);
  Place(*layout, *description_, "lblDescricao", 2, 0);
}

void HeaderPanel::Place(QGridLayout& layout, QLineEdit& box, const char* label, int row,
                        int column) {
  auto* const caption = Named<QLabel>(label, this);
  caption->setBuddy(&box);
  const int columns = &box == static_cast<QLineEdit*>(description_) ? 3 : 1;
  layout.addWidget(caption, row, column, 1, columns);
  layout.addWidget(&box, row + 1, column, 1, columns);
}

void HeaderPanel::Wire() {
  LimitToWholeNumbers(*number_, 0, kMostPoints);
  LimitToWholeNumbers(*points_, 0, kMostPoints);
  entry_.Watch(*finalTime_);
  int number = kFirstBox;
  for (const QLineEdit* const box :
       std::initializer_list<const QLineEdit*>{number_, finalTime_, description_})
    connect(box, &QLineEdit::textEdited, this, [this, box = number--] { emit Edited(box); });
  connect(points_, &QLineEdit::textEdited, this, [this, number] { emit PointsEdited(number); });
  connect(points_, &QLineEdit::editingFinished, this, &HeaderPanel::PointsLeft);
}

void HeaderPanel::SetHeader(const ExperimentHeader& header) {
  number_->setText(QString::fromStdString(header.number));
  finalTime_->setText(QString::fromStdString(header.finalTime));
  description_->setText(QString::fromStdString(header.description));
  description_->setCursorPosition(0);
}

void HeaderPanel::MarkFinalTime(bool early) {
  early_->setVisible(early);
}

void HeaderPanel::SetLanguage(Language language) {
  entry_.SetLanguage(language);
  description_->SetLanguage(language);
  early_->setToolTip(Caption(TextId::FinalTimeBeforeLast, language));
}

ExperimentHeader HeaderPanel::Header() const {
  return {number_->text().toStdString(), description_->text().toStdString(),
          finalTime_->text().toStdString()};
}

void HeaderPanel::SetPoints(int count) {
  points_->setText(QString::number(count));
}

void HeaderPanel::Clear() {
  for (QLineEdit* const box :
       std::initializer_list<QLineEdit*>{number_, points_, finalTime_, description_})
    box->clear();
}

std::optional<int> HeaderPanel::Points() const {
  bool whole = false;
  const int count = points_->text().toInt(&whole);
  return whole ? std::optional(count) : std::nullopt;
}

void HeaderPanel::GoTo(EntryBox box) {
  GoToBox(box == EntryBox::FinalTime ? *finalTime_ : *number_);
}

}  // namespace velmora

#include "app/widgets/Dialogs.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <array>
#include <optional>

#include "app/widgets/Idiomas.h"

namespace velmora {
namespace {

struct AnswerButton {
  QMessageBox::StandardButton button;
  Answer answer;
  std::optional<TextId> caption;  // none for "OK", the same in both languages
};
constexpr std::array<AnswerButton, 5> kAnswers = {
    {{QMessageBox::Ok, Answer::Ok, std::nullopt},
     {QMessageBox::Cancel, Answer::Cancel, TextId::Cancel},
     {QMessageBox::Save, Answer::Save, TextId::SaveButton},
     {QMessageBox::Yes, Answer::Yes, TextId::Yes},
     {QMessageBox::No, Answer::No, TextId::No}}};

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::SaveYesNo:
      return QMessageBox::Save | QMessageBox::Yes | QMessageBox::No;
    case Buttons::NoYes:
    case Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case Buttons::Ok:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(Icon icon) {
  switch (icon) {
    case Icon::Information:
      return QMessageBox::Information;
    case Icon::Question:
      return QMessageBox::Question;
    case Icon::Exclamation:
      return QMessageBox::Warning;
    case Icon::Critical:
      return QMessageBox::Critical;
    case Icon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

/// Words the buttons; the one that keeps things as they are answers Escape and the close button.
void WordButtons(QMessageBox& box, Language language) {
  for (const AnswerButton& each : kAnswers) {
    QAbstractButton* const button = box.button(each.button);
    if (button == nullptr) continue;
    if (each.caption) button->setText(Caption(*each.caption, language));
    box.setEscapeButton(each.button);
  }
}

QString ChosenFile(QFileDialog& dialog, Language language, TextId accept) {
  dialog.setWindowTitle(Caption(accept, language));
  dialog.setLabelText(QFileDialog::Accept, Caption(accept, language));
  dialog.setLabelText(QFileDialog::Reject, Caption(TextId::Cancel, language));
  const bool chosen = dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty();
  return chosen ? dialog.selectedFiles().first() : QString();
}

}  // namespace

Answer Dialogs::Show(QWidget* owner, const Message& message, Buttons buttons,
                     const QString& detail) {
  const Language language = session_.language;
  QString text = QString::fromStdString(Worded(message, language));
  if (!detail.isEmpty()) text += QStringLiteral("\n\n") + detail;
  QMessageBox box(IconOf(message.icon), QString::fromStdString(message.title.In(language)), text,
                  ButtonsOf(buttons), owner);
  box.setTextFormat(Qt::PlainText);
  WordButtons(box, language);
  if (buttons == Buttons::NoYes || buttons == Buttons::SaveYesNo)
    box.setDefaultButton(QMessageBox::No);
  // The key that ends the program, pressed once more, saves.
  if (QAbstractButton* const save = box.button(QMessageBox::Save))
    QObject::connect(new QShortcut(QKeySequence::Save, &box), &QShortcut::activated, save,
                     [save] { save->click(); });
  const int pressed = box.exec();
  for (const AnswerButton& each : kAnswers)
    if (pressed == each.button) return each.answer;
  return Answer::Cancel;
}

QString Dialogs::OpenFile(QWidget* owner, const QString& filter) {
  QFileDialog dialog(owner, QString(), QString(), filter);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return ChosenFile(dialog, session_.language, TextId::Open);
}

QString Dialogs::SaveFile(QWidget* owner, const QString& filter, const QString& suffix,
                          const QString& offered) {
  QFileDialog dialog(owner, QString(), QString(), filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(suffix);
  if (!offered.isEmpty()) {
    dialog.setDirectory(QFileInfo(offered).path());
    dialog.selectFile(offered);
  }
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                   [&dialog](const QString& chosen) {
                     dialog.setDefaultSuffix(chosen.section(QStringLiteral("*."), 1).chopped(1));
                   });
  return ChosenFile(dialog, session_.language, TextId::Save);
}

void Dialogs::TellFault(QWidget* owner, const FileFault& fault) {
  Show(owner, {{TextId::FileError}, TextId::Error, Icon::Critical}, Buttons::Ok,
       QString::fromStdString(FaultDetail(fault, session_.language)));
}

QString ShownPath(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string LocalPath(const QString& file) {
  return QFile::encodeName(file).toStdString();
}

}  // namespace velmora

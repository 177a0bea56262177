// The small parts from which windows and panels are laid out.
#pragma once

#include <QButtonGroup>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QToolButton>
#include <span>

#include "app/widgets/Icons.h"

class QDialog;
class QLineEdit;
class QPushButton;

namespace velmora {

inline constexpr int kSpacing = 6;         // between controls and between panels, pixels
inline constexpr int kDialogSpacing = 12;  // inside a small dialog
inline constexpr int kDialogMargin = 18;   // around its contents

/// A control with its name, by which captions and tests find it.
template <class Control>
Control* Named(const QString& name, QWidget* parent) {
  auto* const control = new Control(parent);
  control->setObjectName(name);
  return control;
}
template <class Control>
Control* Named(const char* name, QWidget* parent) {
  return Named<Control>(QString::fromLatin1(name), parent);
}

/// The name of a member of a control array.
QString MemberName(const char* array, int index);

QLabel* NewLabel(const QString& name, const QString& text, QWidget* parent);

/// A button that shows a drawing alone.
QToolButton* NewButton(const char* name, Symbol symbol, QWidget* parent);
/// The same without a frame until it is used, for a row of them.
QToolButton* NewFlatButton(const char* name, Symbol symbol, QWidget* parent);

/// Gives the window the size `wanted`, or as much of it as the screen has room for, and then its
/// middle, so that its title bar can be seen.
void FitScreen(QWidget& window, const QSize& wanted);

/// One spacing everywhere, and nothing lost around a panel.
void Tighten(QLayout& layout);
/// The same inside a frame, which keeps a margin.
void TightenInside(QLayout& layout);

/// The frame of a small dialog above its buttons, which are made here, after what stands in the
/// frame; the cancel button closes the dialog. Returns the OK button, the default one.
QPushButton* LayOutDialog(QDialog& dialog, QGroupBox& frame);

/// Gives the box the keyboard with its text selected.
void GoToBox(QLineEdit& box);

/// A radio button and the value that it stands for, above 0.
struct RadioOption {
  int value;
  const char* name;
};

/// Radio buttons of which one is chosen, or none.
class OptionGroup : public QButtonGroup {
 public:
  OptionGroup(std::span<const RadioOption> options, QWidget* parent);

  /// Chooses the option of `value`; for a value that none stands for, none.
  void Choose(int value);
  /// The chosen option's value; 0 where none is chosen.
  int Chosen() const;
};

}  // namespace velmora

// The small parts from which panels are laid out.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QToolButton>

#include "app/widgets/Icons.h"

namespace velmora {

inline constexpr int kSpacing = 6;  // between controls and between panels, pixels

/// The name of a member of a control array.
inline QString MemberName(QLatin1StringView array, int index) {
  return QStringLiteral("%1(%2)").arg(array).arg(index);
}

inline QGroupBox* NewFrame(const QString& name, QWidget* parent) {
  auto* const frame = new QGroupBox(parent);
  frame->setObjectName(name);
  return frame;
}

inline QLabel* NewLabel(const QString& name, const QString& text, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setObjectName(name);
  return label;
}

inline QToolButton* NewButton(const QString& name, Symbol symbol, QWidget* parent) {
  auto* const button = new QToolButton(parent);
  button->setObjectName(name);
  button->setIcon(DrawnIcon(symbol));
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

/// One spacing everywhere, and nothing lost around a panel.
inline void Tighten(QLayout& layout) {
  layout.setSpacing(kSpacing);
  layout.setContentsMargins(0, 0, 0, 0);
}

/// The same inside a frame, which keeps a margin.
inline void TightenInside(QLayout& layout) {
  layout.setSpacing(kSpacing);
  layout.setContentsMargins(kSpacing, kSpacing / 2, kSpacing, kSpacing / 2);
}

}  // namespace velmora

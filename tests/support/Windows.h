// Windows on the screen and their controls by name, for tests that work as a user does.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include "tests/support/ScriptedDialogs.h"

namespace velmora::test {

/// Shows the window and gives it the keyboard.
inline void ShowActive(QWidget& window) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

template <typename Kind = QWidget>
Kind* Child(const QObject& window, const char* name) {
  auto* const child = window.findChild<Kind*>(QString::fromUtf8(name));
  EXPECT_NE(child, nullptr) << name;
  return child;
}

inline void Click(const QObject& window, const char* name) {
  auto* const control = Child(window, name);
  QTest::mouseClick(control, Qt::LeftButton, {}, {8, control->height() / 2});
}

/// Types over what stands in a box.
inline void Type(const QObject& window, const char* name, const char* keys) {
  auto* const box = Child<QLineEdit>(window, name);
  box->setFocus();
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Delete);
  QTest::keyClicks(box, QString::fromUtf8(keys));
}

inline std::string TextOf(const QObject& window, const char* box) {
  return Child<QLineEdit>(window, box)->text().toStdString();
}

}  // namespace velmora::test

// The main routine of tests that open windows: without a display they are drawn off the screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QtGlobal>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QApplication application(argc, argv);
  // The windows of one test must not end the program for the next.
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}

// The desktop program.
#include <QApplication>
#include <QLocale>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "app/shell/GrowthCurveView.h"
#include "app/shell/MDIForm1.h"
#include "app/shell/frmSplash.h"
#include "app/widgets/Dialogs.h"
#include "session/Session.h"

namespace {

constexpr int kNoDisplay = 2;  // the exit status

bool IsSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

bool HasDisplay(int argc, char** argv) {
  const std::array names = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
  return std::any_of(names.begin(), names.end(), IsSet) ||
         std::any_of(argv, argv + argc, [](std::string_view word) { return word == "-platform"; });
}

[[noreturn]] void LeaveWithoutDisplay() {
  std::fputs("velmora: no display can be opened; velmora-cli runs without one\n", stderr);
  std::_Exit(kNoDisplay);
}

/// While the application object is made, the one fatal message is that of a display out of reach.
void OnMessageAtStart(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type == QtFatalMsg) LeaveWithoutDisplay();
}

}  // namespace

int main(int argc, char** argv) {
  if (!HasDisplay(argc, argv)) LeaveWithoutDisplay();
  const QtMessageHandler usual = qInstallMessageHandler(OnMessageAtStart);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QApplication::setApplicationName(QStringLiteral("velmora"));
  QApplication::setDesktopFileName(QStringLiteral("velmora"));
  QApplication::setWindowIcon(velmora::GrowthCurveIcon());

  velmora::Session session;
  session.separator = QLocale::system().decimalPoint() == QLatin1StringView(".") ? '.' : ',';
  velmora::Dialogs dialogs(session);
  std::unique_ptr<velmora::MDIForm1> frame;
  velmora::frmSplash start(session);
  QObject::connect(&start, &velmora::frmSplash::Confirmed, &start, [&] {
    frame = std::make_unique<velmora::MDIForm1>(session, dialogs);
    frame->show();
  });
  start.show();
  return QApplication::exec();
}

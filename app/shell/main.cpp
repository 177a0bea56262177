// The desktop program.
#include <QApplication>
#include <QLocale>
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include "app/shell/GrowthCurveView.h"
#include "app/shell/MDIForm1.h"
#include "app/shell/frmSplash.h"
#include "app/widgets/Access.h"
#include "app/widgets/Colours.h"
#include "app/widgets/Dialogs.h"
#include "session/Recovery.h"
#include "session/Session.h"

namespace {

constexpr int kUsage = 2;  // the exit status of a wrong command line, and without a display

constexpr const char* kHelp =
    "Use: velmora [FILE.abr...]\n"
    "Opens each file in the window that its content belongs to.\n"
    "  --help      this text\n"
    "  --version   the version\n"
    "velmora-cli does the same work without a window.\n";

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
  std::_Exit(kUsage);
}

/// While the application object is made, the one fatal message is that of a display out of reach.
void OnMessageAtStart(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type == QtFatalMsg) LeaveWithoutDisplay();
}

/// Answers --help and --version, which need no display.
bool OnlyTells(int argc, char** argv) {
  if (argc != 2) return false;
  const std::string_view word(argv[1]);
  if (word == "--version") std::puts("velmora " VELMORA_VERSION);
  if (word == "--help") std::fputs(kHelp, stdout);
  return word == "--version" || word == "--help";
}

/// The files of the command line; the toolkit has taken its own options from it.
QStringList FilesToOpen() {
  QStringList files = QCoreApplication::arguments().mid(1);
  for (const QString& file : std::as_const(files)) {
    if (!file.startsWith(QLatin1Char('-'))) continue;
    std::fprintf(stderr, "velmora: no option \"%s\"; velmora --help tells the use\n",
                 qPrintable(file));
    std::exit(kUsage);
  }
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  if (OnlyTells(argc, argv)) return 0;
  if (!HasDisplay(argc, argv)) LeaveWithoutDisplay();
  const QtMessageHandler usual = qInstallMessageHandler(OnMessageAtStart);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QApplication::setApplicationName(QStringLiteral("velmora"));
  QApplication::setDesktopFileName(QStringLiteral("velmora"));
  velmora::InstallAccess();
  QApplication::setStyle(velmora::NewClearEdges());
  QApplication::setWindowIcon(velmora::GrowthCurveIcon());

  const QStringList files = FilesToOpen();

  velmora::Session session;
  session.separator = QLocale::system().decimalPoint() == QLatin1StringView(".") ? '.' : ',';
  velmora::Dialogs dialogs(session);
  velmora::RecoveryFile recovery(velmora::StateFolder());
  std::unique_ptr<velmora::MDIForm1> frame;
  velmora::frmSplash start(session);
  QObject::connect(&start, &velmora::frmSplash::Confirmed, &start, [&] {
    frame = std::make_unique<velmora::MDIForm1>(session, dialogs);
    frame->show();
    frame->KeepRecovery(recovery);
    frame->OpenFiles(files);
  });
  start.show();
  return QApplication::exec();
}

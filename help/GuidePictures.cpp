#include "help/GuidePictures.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTextEdit>
#include <QThread>
#include <QTimer>
#include <deque>
#include <functional>
#include <stdexcept>

#include "app/charts/dlgIntervalos.h"
#include "app/charts/dlgTituloGrafico.h"
#include "app/charts/frmZoom.h"
#include "app/settings/frmParametros.h"
#include "app/shell/GrowthCurveView.h"
#include "app/shell/MDIForm1.h"
#include "app/shell/frmSobre.h"
#include "app/shell/frmSplash.h"

namespace velmora {
namespace {

constexpr QSize kEnlarged(900, 600);

/// Chooses the example's files and agrees to every question, so that nothing waits for a user.
class Agreeing : public Dialogs {
 public:
  using Dialogs::Dialogs;
  std::deque<QString> files;

  QImage preview;  // of a table that was opened

  Answer Show(QWidget* owner, const Message& message, Buttons buttons,
              const QString& detail) override {
    if (buttons == Buttons::OkCancel && preview.isNull()) {
      QTimer::singleShot(0, qApp, [this] {
        QWidget* const box = QApplication::activeModalWidget();
        preview = box->grab().toImage();
        box->close();
      });
      Dialogs::Show(owner, message, buttons, detail);
    }
    const bool accepts = buttons == Buttons::Ok || buttons == Buttons::OkCancel;
    return accepts ? Answer::Ok : Answer::Yes;
  }
  QString OpenFile(QWidget*, const QString&) override {
    if (files.empty()) return {};
    QString file = files.front();
    files.pop_front();
    return file;
  }
  QString SaveFile(QWidget*, const QString&, const QString&, const QString&) override { return {}; }
};

QImage Picture(QWidget& window) {
  window.show();
  QApplication::processEvents();
  return window.grab().toImage();
}

void Trigger(QWidget& frame, const char* name) {
  auto* const item = frame.findChild<QAction*>(QLatin1StringView(name));
  if (item == nullptr) throw std::runtime_error(std::string("no menu item ") + name);
  item->trigger();
  QApplication::processEvents();
}

void Press(QWidget& frame, const char* name) {
  auto* const button = frame.findChild<QAbstractButton*>(QLatin1StringView(name));
  if (button == nullptr) throw std::runtime_error(std::string("no button ") + name);
  button->click();
  QApplication::processEvents();
}

QWidget& WindowIn(const QWidget& frame, const char* name) {
  auto* const window = frame.findChild<QWidget*>(QLatin1StringView(name));
  if (window == nullptr) throw std::runtime_error(std::string("no window ") + name);
  return *window;
}

/// Lets the program work until `ready` holds.
void Await(const char* what, const std::function<bool()>& ready) {
  constexpr int kPatience = 120000;  // ms
  QElapsedTimer waiting;
  waiting.start();
  while (!ready()) {
    if (waiting.elapsed() > kPatience) throw std::runtime_error(std::string("no ") + what);
    QApplication::processEvents(QEventLoop::AllEvents, 100);
  }
}

/// The picture of the window of this name once `control` stands in it.
QImage WhenShown(const QWidget& frame, const char* name, const char* control) {
  QWidget& window = WindowIn(frame, name);
  Await(control, [&] { return window.findChild<QWidget*>(QLatin1StringView(control)) != nullptr; });
  return Picture(window);
}

/// What is another at every run, the time that a fit took and the date of its report, in one and
/// the same way.
void HoldTimes(const QWidget& frame) {
  for (auto* const clock : frame.findChildren<QLabel*>(QStringLiteral("lblTimer")))
    clock->setText(QStringLiteral("00:00:01"));
  static const QRegularExpression kDate(QStringLiteral("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d"));
  for (auto* const text : frame.findChildren<QTextEdit*>()) {
    QTextCursor found = text->document()->find(kDate);
    if (!found.isNull()) found.insertText(QStringLiteral("2026-01-05 09:00"));
  }
}

/// The picture of the models compared, once they are.
QImage ComparisonPicture(const QWidget& frame) {
  QWidget& window = WindowIn(frame, "frmComparacao");
  auto* const table = window.findChild<QTableWidget*>();
  Await("compared models", [table] { return table->rowCount() > 0; });
  return Picture(window);
}

}  // namespace

QMap<QString, QImage> TakePictures(Language language, const QString& examplesFolder,
                                   const QSize& frameSize) {
  QApplication::setWindowIcon(GrowthCurveIcon());
  Session session;
  session.language = language;
  session.separator = language == Language::Portuguese ? ',' : '.';
  Agreeing dialogs(session);
  dialogs.files = {examplesFolder + QStringLiteral("/molasses.csv"),
                   examplesFolder + QStringLiteral("/molasses-conditions.abr")};

  QMap<QString, QImage> pictures;
  MDIForm1 frame(session, dialogs);
  frame.setWindowState(Qt::WindowNoState);
  frame.resize(frameSize);
  frame.show();
  Trigger(frame, "mnuAbrirExp");
  if (session.lists.Empty()) throw std::runtime_error("the example cannot be opened");
  pictures[QStringLiteral("preview")] = dialogs.preview;
  pictures[QStringLiteral("experiments")] = Picture(frame);
  Trigger(frame, "mnuBatelada");
  pictures[QStringLiteral("empty")] = Picture(frame);
  Press(frame, "cmdPropor");
  pictures[QStringLiteral("proposed")] = Picture(frame);
  Trigger(frame, "mnuACondBat");
  pictures[QStringLiteral("conditions")] = Picture(frame);
  Press(frame, "cmdAjustar");
  // The verdict comes from a thread of its own.
  Await("verdict", [&] { return frame.findChildren<QThread*>().isEmpty(); });
  HoldTimes(frame);
  pictures[QStringLiteral("results")] = Picture(frame);

  Press(frame, "cmdRelatorio");
  HoldTimes(frame);
  pictures[QStringLiteral("report")] = Picture(WindowIn(frame, "frmRelatorio"));

  Press(frame, "cmdCerteza");
  pictures[QStringLiteral("sure")] = WhenShown(frame, "frmCerteza", "picPerfil(0)");
  Press(frame, "cmdComparar");
  pictures[QStringLiteral("comparison")] = ComparisonPicture(frame);

  frmZoom zoom(session, dialogs, PlotVariable::Cx);
  zoom.resize(kEnlarged);
  Press(zoom, "cmdInsLegenda");
  pictures[QStringLiteral("zoom")] = Picture(zoom);
  dlgTituloGrafico title(session);
  pictures[QStringLiteral("title")] = Picture(title);
  const TimeInterval measured = MeasuredTimes(session.lists);
  dlgIntervalos interval(session, dialogs, measured, measured, "Cx (g/L)", {});
  pictures[QStringLiteral("interval")] = Picture(interval);

  frmParametros settings(session, dialogs);
  pictures[QStringLiteral("settings")] = Picture(settings);
  frmSobre about(session);
  pictures[QStringLiteral("about")] = Picture(about);
  frmSplash start(session);
  // The start window always begins in Portuguese.
  if (language == Language::English) Press(start, "optIdioma(0)");
  pictures[QStringLiteral("start")] = Picture(start);
  return pictures;
}

}  // namespace velmora

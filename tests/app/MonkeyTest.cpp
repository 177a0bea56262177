// A thousand random keys, clicks, menus, dialogs and files: nothing breaks, no work is torn.
#include <QAbstractScrollArea>
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QScrollBar>
#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "app/charts/ChartView.h"
#include "app/cultivation/frmCultBatelada.h"
#include "app/shell/MDIForm1.h"
#include "session/Recovery.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Windows.h"

namespace velmora {
namespace {

int FromEnvironment(const char* name, int usual) {
  const char* const given = std::getenv(name);
  return given != nullptr ? std::atoi(given) : usual;
}

using Random = std::mt19937;

template <class Values>
const auto& OneOf(const Values& values, Random& random) {
  const auto count = static_cast<std::size_t>(std::size(values));
  return *std::next(std::begin(values), static_cast<std::ptrdiff_t>(random() % count));
}

/// Answers at random, and chooses files that hold this and that.
class Guessing : public Dialogs {
 public:
  Guessing(const Session& session, Random& random, QStringList files, QString folder)
      : Dialogs(session), random_(random), files_(std::move(files)), folder_(std::move(folder)) {}

  Answer Show(QWidget* owner, const Message& message, Buttons buttons,
              const QString& detail) override {
    if (random_() % 10 == 0) return Dialogs::Show(owner, message, buttons, detail);
    const bool agrees = random_() % 3 != 0;
    if (buttons == Buttons::Ok) return Answer::Ok;
    if (buttons == Buttons::OkCancel) return agrees ? Answer::Ok : Answer::Cancel;
    if (buttons == Buttons::SaveYesNo && random_() % 2 == 0) return Answer::Save;
    return agrees ? Answer::Yes : Answer::No;
  }
  QString OpenFile(QWidget*, const QString&) override {
    return random_() % 5 == 0 ? QString() : OneOf(files_, random_);
  }
  QString SaveFile(QWidget*, const QString&, const QString& suffix, const QString&) override {
    if (random_() % 4 == 0) return {};
    const QString name = random_() % 6 == 0 ? QStringLiteral("none/x.") : QStringLiteral("saved.");
    return folder_ + u'/' + name + suffix;
  }

 private:
  Random& random_;
  const QStringList files_;
  const QString folder_;
};

/// What the toolkit complains of: connections, layouts and painters that are wrong.
QStringList complaints;
void Complain(QtMsgType type, const QMessageLogContext&, const QString& message) {
  // What the offscreen platform cannot do is no fault of the windows.
  if (type != QtDebugMsg && !message.contains(QStringLiteral("offscreen")) &&
      !message.contains(QStringLiteral("This plugin")))
    complaints << message;
}

class Monkey : public QObject {
 public:
  Monkey(unsigned seed, int actions, const QString& folder)
      : random_(seed),
        left_(actions),
        dialogs_(session_, random_, Files(folder), folder),
        folder_(folder) {}

  /// Acts until all is done and every window that stands in the way is closed.
  void Run() {
    Open();
    Step();
    loop_.exec();
    frame_.reset();
    for (const char* const place : {"experiments", "conditions", "frmZoom", "frmParametros"})
      EXPECT_TRUE(seen_.contains(place)) << place << ": it did not come far";
    std::string places;
    for (const std::string& place : seen_) places += place + " ";
    testing::Test::RecordProperty("places", places);
  }

 private:
  static QStringList Files(const QString& folder) {
    const QString examples = QStringLiteral(VELMORA_SOURCE_FOLDER "/examples/");
    QStringList files;
    for (const char* const name :
         {"molasses.abr", "molasses-conditions.abr", "yeast-nine.abr", "yeast-nine-conditions.abr",
          "molasses.csv", "yeast-ten-batches.csv", "README.md"})
      files << examples + QLatin1StringView(name);
    return files << folder + QStringLiteral("/saved.abr") << folder + QStringLiteral("/none.abr");
  }

  void Open() {
    frame_ = std::make_unique<MDIForm1>(session_, dialogs_);
    frame_->show();
  }

  /// The next step waits in the queue, so that it is taken inside a dialog or a search as well.
  void Step() {
    if (left_ == 0 && !Blocked()) return loop_.quit();
    QTimer::singleShot(0, this, &Monkey::Step);
    if (left_ == 0) return Unblock();
    --left_;
    if (!frame_->isVisible() && depth_ == 0) Open();
    ++depth_;
    Act();
    --depth_;
    LookAround();
    if (left_ % 50 == 0) CheckState();
  }

  /// Notes where it has been.
  void LookAround() {
    for (const QWidget* const each : QApplication::topLevelWidgets())
      if (each->isVisible()) seen_.insert(each->objectName().toStdString());
    if (!session_.lists.Empty()) seen_.insert("experiments");
    if (session_.conditions.SavedCount() > 0) seen_.insert("conditions");
    if (session_.CurvesPresent()) seen_.insert("curves");
    if (session_.lastRun) seen_.insert("fit");
  }

  bool Blocked() const {
    return depth_ > 0 || QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr;
  }
  void Unblock() {
    if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    if (QWidget* const modal = QApplication::activeModalWidget()) modal->close();
    if (auto* const cultivation = frame_->findChild<frmCultBatelada*>()) cultivation->StopRun();
  }

  /// The state can be taken up again as it is, at any moment.
  void CheckState() {
    Session again;
    const std::string text = RecoveryText(session_);
    ASSERT_TRUE(Recover(again, text));
    ASSERT_EQ(again.lists, session_.lists);
    ASSERT_LE(session_.conditions.SavedCount(), kMostExperiments);
    ASSERT_TRUE(session_.draft.shown >= 0 && session_.draft.shown <= session_.lists.Count());
  }

  void Act() {
    QWidget* const popup = QApplication::activePopupWidget();
    if (popup != nullptr) return PressKey(*popup);
    QWidget* const window = ActiveWindow();
    switch (random_() % 16) {
      case 0:
        return Trigger();
      case 1:
        return frame_->resize(400 + static_cast<int>(random_() % 1300),
                              300 + static_cast<int>(random_() % 800));
      case 2:
        return frame_->OpenFiles({OneOf(Files(folder_), random_)});
      case 3:
        return Paste(*window);
      case 4:
        return CloseOne();
      case 5:
      case 6:
      case 7:
        return PressKey(QApplication::focusWidget() != nullptr ? *QApplication::focusWidget()
                                                               : *window);
      default:
        return Click(*window);
    }
  }

  QWidget* ActiveWindow() {
    if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
    QWidgetList windows;
    for (QWidget* const each : QApplication::topLevelWidgets())
      if (each->isVisible() && each->windowType() != Qt::ToolTip && each != frame_.get())
        windows << each;
    if (windows.isEmpty() || random_() % 3 != 0) return frame_.get();
    return OneOf(windows, random_);
  }

  void CloseOne() {
    QWidget* const window = ActiveWindow();
    if (window != frame_.get() || random_() % 4 == 0) window->close();
  }

  void Trigger() {
    if (QApplication::activeModalWidget() != nullptr) return;
    QList<QAction*> actions;
    for (QAction* const each : frame_->findChildren<QAction*>())
      if (each->isEnabled() && each->isVisible() && each->objectName().startsWith(u"mnu") &&
          each->menu<QMenu*>() == nullptr)
        actions << each;
    if (!actions.isEmpty()) OneOf(actions, random_)->trigger();
  }

  void PressKey(QWidget& receiver) {
    struct Press {
      int key;
      Qt::KeyboardModifiers with;
    };
    static const std::vector<Press> kKeys = {{Qt::Key_Tab, {}},
                                             {Qt::Key_Backtab, Qt::ShiftModifier},
                                             {Qt::Key_Return, {}},
                                             {Qt::Key_Space, {}},
                                             {Qt::Key_Escape, {}},
                                             {Qt::Key_Up, {}},
                                             {Qt::Key_Down, {}},
                                             {Qt::Key_Left, {}},
                                             {Qt::Key_Right, {}},
                                             {Qt::Key_Delete, {}},
                                             {Qt::Key_Backspace, {}},
                                             {Qt::Key_Home, {}},
                                             {Qt::Key_End, {}},
                                             {Qt::Key_PageDown, {}},
                                             {Qt::Key_F2, {}},
                                             {Qt::Key_0, {}},
                                             {Qt::Key_1, {}},
                                             {Qt::Key_5, {}},
                                             {Qt::Key_9, {}},
                                             {Qt::Key_Period, {}},
                                             {Qt::Key_Comma, {}},
                                             {Qt::Key_Minus, {}},
                                             {Qt::Key_X, {}},
                                             {Qt::Key_E, {}},
                                             {Qt::Key_Z, Qt::ControlModifier},
                                             {Qt::Key_Y, Qt::ControlModifier},
                                             {Qt::Key_X, Qt::ControlModifier},
                                             {Qt::Key_C, Qt::ControlModifier},
                                             {Qt::Key_V, Qt::ControlModifier},
                                             {Qt::Key_A, Qt::ControlModifier},
                                             {Qt::Key_B, Qt::ControlModifier},
                                             {Qt::Key_L, Qt::ControlModifier},
                                             {Qt::Key_G, Qt::ControlModifier},
                                             {Qt::Key_D, Qt::ControlModifier},
                                             {Qt::Key_E, Qt::ControlModifier},
                                             {Qt::Key_P, Qt::ControlModifier},
                                             {Qt::Key_M, Qt::ControlModifier},
                                             {Qt::Key_F, Qt::AltModifier}};
    const Press& press = OneOf(kKeys, random_);
    QTest::keyClick(&receiver, static_cast<Qt::Key>(press.key), press.with);
  }

  void Paste(QWidget& window) {
    static const QStringList kTexts = {
        QStringLiteral("1\t2\t3\t4\n5\t6\t7\t8\n"),
        QStringLiteral("t (h);Cx;Cs;Cp\n0;0,5;60;0\n5;1,5;40;7\n9;4;2;30\n"),
        QStringLiteral("time,substrate,biomass\n0,60,1\n3,x,2\n"),
        QStringLiteral("-1\t1e400\t\u00e7\n"),
        QStringLiteral("0.5"),
        QString(3000, u'9')};
    QApplication::clipboard()->setText(OneOf(kTexts, random_));
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &window, Qt::Key_V, Qt::ControlModifier);
  }

  void Click(const QWidget& window) {
    QWidgetList controls;
    for (QWidget* const each : window.findChildren<QWidget*>())
      if (each->isVisible() && each->isEnabled() &&
          (each->focusPolicy() != Qt::NoFocus || qobject_cast<ChartView*>(each) != nullptr))
        controls << each;
    if (controls.isEmpty()) return;
    QPointer<QWidget> control = OneOf(controls, random_);
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(control.data()))
      control = area->viewport();
    const QPoint at(static_cast<int>(random_() % static_cast<unsigned>(control->width() + 1)),
                    static_cast<int>(random_() % static_cast<unsigned>(control->height() + 1)));
    const int kind = static_cast<int>(random_() % 12);
    if (kind == 0) return QTest::mouseDClick(control, Qt::LeftButton, {}, at);
    QTest::mouseClick(control, kind == 1 ? Qt::RightButton : Qt::LeftButton, {}, at);
    if (control && qobject_cast<QLineEdit*>(control.data()) != nullptr && random_() % 2 == 0)
      QTest::keyClicks(control, OneOf(QStringList{QStringLiteral("12.5"), QStringLiteral("0,3"),
                                                  QStringLiteral("7"), QStringLiteral("abc")},
                                      random_));
  }

  Random random_;
  int left_;
  int depth_ = 0;
  Session session_;
  Guessing dialogs_;
  const QString folder_;
  std::set<std::string> seen_;
  std::unique_ptr<MDIForm1> frame_;
  QEventLoop loop_;
};

TEST(Monkey, FindsNothingThatBreaks) {
  const TemporaryFolder folder;
  const int actions = FromEnvironment("VELMORA_MONKEY_ACTIONS", 1000);
  const int seed = FromEnvironment("VELMORA_MONKEY_SEED", 11);
  complaints.clear();
  const QtMessageHandler usual = qInstallMessageHandler(Complain);
  {
    Monkey monkey(static_cast<unsigned>(seed), actions, QString::fromStdString(folder / "."));
    monkey.Run();
  }
  qInstallMessageHandler(usual);
  complaints.removeDuplicates();
  EXPECT_EQ(complaints.join(u'\n').toStdString(), "");
}

}  // namespace
}  // namespace velmora

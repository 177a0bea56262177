// The program for those who use no mouse, or do not see the screen.
#include <QAccessible>
#include <QCheckBox>
#include <QFile>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QTextEdit>
#include <set>

#include "app/charts/dlgIntervalos.h"
#include "app/charts/dlgTamanhoFigura.h"
#include "app/charts/dlgTituloGrafico.h"
#include "app/charts/frmZoom.h"
#include "app/cultivation/ModelHelp.h"
#include "app/cultivation/frmCerteza.h"
#include "app/cultivation/frmComparacao.h"
#include "app/cultivation/frmRelatorio.h"
#include "app/settings/frmParametros.h"
#include "app/shell/MDIForm1.h"
#include "app/shell/frmSobre.h"
#include "app/shell/frmSplash.h"
#include "app/widgets/Access.h"
#include "app/widgets/Colours.h"
#include "app/widgets/Idiomas.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Windows.h"

namespace velmora {
namespace {

constexpr Language kLanguages[] = {Language::English, Language::Portuguese};

QString Example(const char* name) {
  return QStringLiteral(VELMORA_SOURCE_FOLDER "/examples/") + QLatin1StringView(name);
}

/// Presses a key where the keyboard is.
void Key(Qt::Key key, Qt::KeyboardModifiers with = {}) {
  QWidget* receiver = QApplication::activePopupWidget();
  if (receiver == nullptr) receiver = QApplication::focusWidget();
  if (receiver == nullptr) receiver = QApplication::activeWindow();
  ASSERT_NE(receiver, nullptr);
  QTest::keyClick(receiver, key, with);
}

std::string KeyboardAt() {
  const QWidget* const at = QApplication::focusWidget();
  if (at == nullptr) return "nowhere";
  const std::string name = at->objectName().toStdString();
  return name.empty() ? at->metaObject()->className() : name;
}

/// In English in a window as wide as its columns, in Portuguese in a small one with tabs.
TEST(Keyboard, GoesAloneFromTheStartToTheSavedReport) {
  for (const Language language : kLanguages) {
    const TemporaryFolder folder;
    Session session;
    ScriptedDialogs dialogs(session);
    std::unique_ptr<MDIForm1> frame;
    frmSplash start(session);
    QObject::connect(&start, &frmSplash::Confirmed, &start,
                     [&] { frame = std::make_unique<MDIForm1>(session, dialogs); });
    test::ShowActive(start);
    if (language == Language::English) {
      while (!QApplication::focusWidget()->objectName().startsWith(u"optIdioma")) Key(Qt::Key_Tab);
      Key(Qt::Key_Up);
      EXPECT_EQ(session.language, Language::English) << "an arrow chooses";
    }
    Key(Qt::Key_Return);
    ASSERT_NE(frame, nullptr);
    test::ShowActive(*frame);
    frame->setWindowState(Qt::WindowNoState);
    frame->resize(language == Language::English ? QSize(1600, 1000) : QSize(853, 500));
    EXPECT_EQ(KeyboardAt(), "MSFlexGrid1") << "where the first entry goes";
    dialogs.files = {Example("molasses.abr"), Example("molasses-conditions.abr")};
    // File, Open, Experiments.
    Key(language == Language::English ? Qt::Key_F : Qt::Key_A, Qt::AltModifier);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}) Key(key);
    ASSERT_EQ(session.lists.Count(), 1);
    Key(Qt::Key_B, Qt::ControlModifier);
    // File, Open, Cultivation conditions, Batch.
    Key(language == Language::English ? Qt::Key_F : Qt::Key_A, Qt::AltModifier);
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return})
      Key(key);
    ASSERT_EQ(session.conditions.SavedCount(), 1);
    dialogs.answers = {Answer::Yes};
    std::vector<std::string> way;
    while (KeyboardAt() != "cmdAjustar" && way.size() < 60) {
      Key(Qt::Key_Tab);
      way.push_back(KeyboardAt());
    }
    // Above, what is chosen and entered, and then the commands.
    const std::vector<std::string> expected =
        language == Language::English
            ? std::vector<std::string>{"txtLimSup(2)", "cmdPropor", "cdmSalvar", "cmdAjustar"}
            : std::vector<std::string>{"cdmTrocarModelo", "cmdPropor", "cdmSalvar", "cmdAjustar"};
    ASSERT_TRUE(way.size() > 4 && std::equal(expected.begin(), expected.end(), way.end() - 4))
        << testing::PrintToString(way);
    Key(Qt::Key_Space);
    ASSERT_TRUE(session.lastRun);
    // Of the frame: without a window manager it is not active any more behind a menu.
    ASSERT_TRUE(frame->focusWidget() != nullptr);
    EXPECT_EQ(frame->focusWidget()->objectName(), QStringLiteral("cmdRelatorio"));
    QTest::keyClick(frame->focusWidget(), Qt::Key_Space);
    auto* const report = frame->findChild<frmRelatorio*>();
    ASSERT_TRUE(report != nullptr && QTest::qWaitForWindowExposed(report));
    dialogs.files = {QString::fromStdString(folder / "report.rtf")};
    QTest::keyClick(report->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(QFile::exists(QString::fromStdString(folder / "report.rtf")));
    QTest::keyClick(report->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(report->isVisible());
  }
}

/// The controls of `window` that take the keyboard and that a screen reader could not name.
QStringList Nameless(const QWidget& window) {
  QStringList nameless;
  for (QWidget* const control : window.findChildren<QWidget*>()) {
    // A part of a control that has its name, such as the text of a spin box.
    if (control->objectName().startsWith(u"qt_")) continue;
    if (control->focusPolicy() == Qt::NoFocus || !control->isVisibleTo(&window)) continue;
    QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(control);
    if (told == nullptr || told->text(QAccessible::Name).trimmed().isEmpty())
      nameless << QLatin1StringView(control->metaObject()->className()) + u' ' +
                      control->objectName();
  }
  return nameless;
}

TEST(Access, EdgesAreSeenOnBlack) {
  const std::unique_ptr<QStyle> style(NewClearEdges());
  QLineEdit box;
  QCheckBox tick;
  QRadioButton option;
  for (QWidget* const control : std::initializer_list<QWidget*>{&box, &tick, &option}) {
    control->setStyle(style.get());
    control->setPalette(QPalette(Qt::white, Qt::black, Qt::white, Qt::darkGray, Qt::gray, Qt::white,
                                 Qt::white, Qt::black, Qt::black));
    control->resize(24, 24);
    const QImage picture = control->grab().toImage();
    int light = 0;
    for (int x = 0; x < picture.width(); ++x)
      light += picture.pixelColor(x, picture.height() / 2).lightness() > 200 ? 1 : 0;
    EXPECT_GE(light, 2) << control->metaObject()->className();
  }
}

TEST(Access, APressOfAScreenReaderIsAClick) {
  InstallAccess();
  Session session;
  frmSplash start(session);
  QAccessibleInterface* const english =
      QAccessible::queryAccessibleInterface(test::Child<QAbstractButton>(start, "optIdioma(0)"));
  ASSERT_NE(english, nullptr);
  ASSERT_EQ(english->role(), QAccessible::RadioButton);
  EXPECT_EQ(english->text(QAccessible::Name), QStringLiteral("English"));
  english->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(session.language, Language::English);
  EXPECT_TRUE(english->state().checked);
}

TEST(Access, EquationsAreDrawn) {
  const Model* const model = FindModel("Moser-Levenspiel-Lee");
  ASSERT_NE(model, nullptr);
  const QString help = DrawnModelHelp(*model, Language::English);
  for (const char* const part : {"µ = µ<sub>max</sub>", ">C<sub>s</sub><sup>u</sup></td>",
                                 ">C<sub>s</sub><sup>u</sup> + K<sub>s</sub></td>",
                                 "(1 − C<sub>p</sub>/C<sub>p</sub>*)<sup>n</sup>", "<p>Lee: "})
    EXPECT_TRUE(help.contains(QString::fromUtf8(part))) << part << " in " << help.toStdString();
}

/// The names of `window` that two controls in sight share.
QStringList SharedNames(const QWidget& window) {
  QStringList shared;
  std::set<QString> seen;
  for (QWidget* const control : window.findChildren<QWidget*>()) {
    if (control->focusPolicy() == Qt::NoFocus || !control->isVisibleTo(&window)) continue;
    if (control->accessibleName().isEmpty() && qobject_cast<QAbstractButton*>(control) == nullptr)
      continue;
    const QString name =
        QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name).remove(u'&');
    if (!seen.insert(name).second) shared << name;
  }
  return shared;
}

TEST(Access, EveryControlThatTakesTheKeyboardHasAName) {
  for (const Language language : kLanguages) {
    Session session;
    session.language = language;
    ScriptedDialogs dialogs(session);
    MDIForm1 frame(session, dialogs);
    frame.show();
    frame.OpenFiles({Example("molasses.abr"), Example("molasses-conditions.abr")});
    dialogs.answers = {Answer::Yes};
    test::Click(frame, "cmdAjustar");
    ASSERT_TRUE(session.lastRun);
    const QScrollBar* const end =
        test::Child<QPlainTextEdit>(frame, "txtResultados")->verticalScrollBar();
    QTRY_COMPARE(end->value(), end->maximum());
    test::Click(frame, "cmdRelatorio");
    session.clickedChart = "picCx";
    const auto expectNamed = [](QWidget& window) {
      window.show();
      EXPECT_EQ(Nameless(window).join(u'\n').toStdString(), "")
          << window.objectName().toStdString();
      EXPECT_EQ(SharedNames(window).join(u'\n').toStdString(), "")
          << window.objectName().toStdString();
      if (!window.isWindow()) return;
      EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()))
          << window.objectName().toStdString();
    };
    for (const QSize& size : {QSize(1600, 1000), QSize(853, 500)}) {
      frame.setWindowState(Qt::WindowNoState);
      frame.resize(size);
      QTest::qWait(1);
      for (const char* const item : {"mnuNovo", "mnuBatelada"}) {
        test::Child<QAction>(frame, item)->trigger();
        auto* const active = frame.findChild<QWidget*>(QLatin1StringView(session.activeWindow));
        auto* const tabs = active->findChild<QTabWidget*>();
        for (int page = 0; page < (tabs != nullptr ? tabs->count() : 1); ++page) {
          if (tabs != nullptr) tabs->setCurrentIndex(page);
          expectNamed(*active);
        }
      }
    }
    const TimeInterval measured = MeasuredTimes(session.lists);
    frmSplash start(session);
    session.language = language;
    Idiomas(start, language);
    frmZoom zoom(session, dialogs, PlotVariable::Cx);
    dlgIntervalos interval(session, dialogs, measured, measured, "Cx (g/L)", {});
    dlgTituloGrafico title(session);
    dlgTamanhoFigura size(session);
    frmParametros settings(session, dialogs);
    frmSobre about(session);
    frmComparacao compared(session);
    frmCerteza sure(session, session.lastRun);
    for (QWidget* const window :
         std::initializer_list<QWidget*>{&start, &zoom, &interval, &title, &size, &settings, &about,
                                         &compared, &sure, frame.findChild<frmRelatorio*>()})
      expectNamed(*window);
    QTRY_VERIFY_WITH_TIMEOUT(sure.findChild<QWidget*>(QStringLiteral("picPerfil(0)")), 20000);
    expectNamed(sure);
  }
}

}  // namespace
}  // namespace velmora

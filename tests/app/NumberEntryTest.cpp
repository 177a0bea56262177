// The key filter in real boxes: keys, the clipboard, the mouse, an input method.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include "app/widgets/NumberEntry.h"

namespace velmora {
namespace {

class Box {
 public:
  explicit Box(char separator) : filter(separator), refusals(&filter, &NumberEntry::Refused) {
    filter.Watch(edit);
    edit.show();
    edit.activateWindow();
    edit.setFocus();
  }

  std::string Text() const { return edit.text().toStdString(); }
  void Type(const char* keys) {
    for (const QChar key : QString::fromUtf8(keys))
      QTest::sendKeyEvent(QTest::Click, &edit,
                          key == QLatin1Char('\b') ? Qt::Key_Backspace : Qt::Key_unknown,
                          QString(key), Qt::NoModifier);
  }
  void Paste(const char* text, Qt::Key key = Qt::Key_V,
             Qt::KeyboardModifier modifier = Qt::ControlModifier) {
    QApplication::clipboard()->setText(QString::fromUtf8(text));
    QTest::keyClick(&edit, key, modifier);
  }
  void PasteByMenu(const char* cell) {  // of a spreadsheet, which brings its line end along
    QApplication::clipboard()->setText(QString::fromUtf8(cell) + QStringLiteral("\r\n"));
    QContextMenuEvent menu(QContextMenuEvent::Mouse, {}, edit.mapToGlobal(QPoint()));
    QApplication::sendEvent(&edit, &menu);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_P);
  }
  void Drop(const char* text) {
    QMimeData data;
    data.setText(QString::fromUtf8(text));
    const QPoint end(edit.width() - 4, edit.height() / 2);
    QDragEnterEvent enter(end, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &enter);
    QDropEvent drop(end, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &drop);
  }
  void Compose(const char* text) {
    QInputMethodEvent commit;
    commit.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(&edit, &commit);
  }

  QLineEdit edit;
  NumberEntry filter;
  QSignalSpy refusals;
};

struct Typed {
  char separator;
  const char* start;
  const char* keys;
  const char* text;
  int refused;
};

const Typed kTyped[] = {{',', "", "1.5", "1,5", 0},
                        {'.', "", "1,5", "1.5", 0},
                        {',', "", "1,5,.7", "1,57", 2},
                        {'.', "", "-2e+ 3ç", "23", 5},
                        {'.', "12345678901", "23", "123456789012", 1},
                        {',', "1234567890,1", "2345", "1234567890,12", 3},
                        {'.', "123456789012", "\b3", "123456789013", 0},
                        // What code has set stays, and counts.
                        {'.', " 1E-05", "7", " 1E-057", 0},
                        {',', " .8", ",5", " .8,5", 0}};

TEST(NumberEntry, FiltersTypedKeysOneByOne) {
  for (const Typed& typed : kTyped) {
    Box box(typed.separator);
    box.edit.setText(QString::fromUtf8(typed.start));
    box.Type(typed.keys);
    EXPECT_EQ(box.Text(), typed.text);
    EXPECT_EQ(box.refusals.count(), typed.refused) << typed.keys << " into " << typed.start;
  }
}

TEST(NumberEntry, ReplacesASelectionThatHoldsTheSeparator) {
  Box box('.');
  box.edit.setText(QStringLiteral("12.5678901234"));
  box.edit.setSelection(2, 5);
  box.Type(",");
  EXPECT_EQ(box.Text(), "12.901234");
  box.edit.selectAll();
  box.Type("x");
  EXPECT_EQ(box.Text(), "12.901234");
  EXPECT_EQ(box.refusals.count(), 1);
}

TEST(NumberEntry, LeavesEditingKeysAlone) {
  Box box('.');
  box.Type("12345");
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_Delete, Qt::Key_Right, Qt::Key_Backspace,
                            Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab})
    QTest::keyClick(&box.edit, key);
  EXPECT_EQ(box.Text(), "345");
  for (const Qt::Key key : {Qt::Key_A, Qt::Key_X})
    QTest::keyClick(&box.edit, key, Qt::ControlModifier);
  EXPECT_EQ(box.Text(), "");
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("345"));
  EXPECT_EQ(box.refusals.count(), 0);
}

// Whichever way a text is brought in, it is taken whole or not at all.
TEST(NumberEntry, TakesBroughtInTextsWholeOrNotAtAll) {
  using Way = void (*)(Box&, const char*);
  const Way ways[] = {
      [](Box& box, const char* text) { box.Paste(text); },
      [](Box& box, const char* text) { box.Paste(text, Qt::Key_Insert, Qt::ShiftModifier); },
      [](Box& box, const char* text) { box.PasteByMenu(text); },
      [](Box& box, const char* text) { box.Drop(text); },
      [](Box& box, const char* text) { box.Compose(text); }};
  for (const Way bring : ways) {
    Box box(',');
    bring(box, "1.25");
    EXPECT_EQ(box.Text(), "1,25");
    for (const char* refused : {"2.5", "-3", "1e5", "1234567890", "abc"}) bring(box, refused);
    EXPECT_EQ(box.Text(), "1,25");
    EXPECT_EQ(box.refusals.count(), 5);
    bring(box, "75");
    EXPECT_EQ(box.Text(), "1,2575");
  }
}

}  // namespace
}  // namespace velmora

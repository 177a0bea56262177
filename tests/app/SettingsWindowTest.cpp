// The settings window through its keys and buttons.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "app/settings/frmParametros.h"
#include "tests/support/ScriptedDialogs.h"

namespace velmora {
namespace {

class SettingsWindow : public testing::Test {
 protected:
  void Open(char separator = '.') {
    session_.separator = separator;
    window_ = std::make_unique<frmParametros>(session_, dialogs_);
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  QLineEdit& Box(const char* name) {
    return *window_->findChild<QLineEdit*>(QString::fromUtf8(name));
  }
  void Type(const char* box, const char* keys) {
    Box(box).setFocus();
    Box(box).selectAll();
    QTest::keyClicks(&Box(box), QString::fromUtf8(keys));
  }
  void Press(const char* button) {
    QTest::mouseClick(window_->findChild<QPushButton*>(QString::fromUtf8(button)), Qt::LeftButton);
  }

  Session session_;
  ScriptedDialogs dialogs_{session_};
  std::unique_ptr<frmParametros> window_;
};

TEST_F(SettingsWindow, OpensWithTheDefaultsAndStoresThemUnchanged) {
  for (const char separator : {'.', ','}) {
    Open(separator);
    const std::pair<const char*, const char*> texts[] = {
        {"txtNPOP", " 100"},  {"txtITER", " 200"},  {"txtPCROS", " .8"}, {"txtFACT", " .8"},
        {"txtFACT1", " .01"}, {"txtEPS", " 1E-05"}, {"txtIU", " 5471"}};
    for (const auto& [box, text] : texts) EXPECT_EQ(Box(box).text().toStdString(), text);
    Press("cdmAtualizar");
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(session_.settings, EstimationSettings());
  }
}

TEST_F(SettingsWindow, StoresWhatIsTypedAndClosingAloneStoresNothing) {
  Open(',');
  Type("txtNPOP", "10");
  Type("txtPCROS", "0.5");
  Type("txtEPS", "0,0000001");
  Press("cdmAtualizar");
  EXPECT_EQ(session_.settings, (EstimationSettings{10, 200, 0.5, 0.8, 0.01, 1e-7, 5471}));
  Open(',');
  EXPECT_EQ(Box("txtEPS").text().toStdString(), " 1E-07");
  Type("txtIU", "1234");
  Press("cdmFechar");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(session_.settings.IU, 5471);
}

TEST_F(SettingsWindow, RefusesEachBoxOutOfBoundsOrWithoutANumber) {
  const std::pair<const char*, const char*> refused[] = {
      {"txtNPOP", "9.99"}, {"txtITER", "199"},    {"txtPCROS", "0.91"},
      {"txtFACT", "0.49"}, {"txtFACT1", "0.011"}, {"txtEPS", "0.00011"},
      {"txtIU", "10000"},  {"txtIU", "999"},      {"txtEPS", "."}};
  for (const auto& [box, text] : refused) {
    Open();
    Type("txtITER", "300");
    Type(box, text);
    Press("cdmAtualizar");
    EXPECT_EQ(session_.settings, EstimationSettings()) << box;
    ASSERT_TRUE(window_->isVisible() && !dialogs_.shown.empty()) << box;
    EXPECT_EQ(Box(box).text().toStdString(), text);
    EXPECT_TRUE(Box(box).hasFocus()) << box;
    EXPECT_EQ(dialogs_.shown.back(),
              (std::pair{Message{{TextId::OutOfBounds}, TextId::Attention, Icon::Critical},
                         Buttons::Ok}));
  }
  EXPECT_EQ(dialogs_.shown.size(), std::size(refused));
}

TEST_F(SettingsWindow, CreatesItsBoxesInTheirOrder) {
  Open();
  QStringList created;
  for (const QLineEdit* const box : window_->findChildren<QLineEdit*>())
    created << box->objectName();
  EXPECT_EQ(created.join(QLatin1Char(' ')),
            QStringLiteral("txtNPOP txtPCROS txtFACT1 txtIU txtITER txtFACT txtEPS"));
}

TEST_F(SettingsWindow, EnterGoesFromBoxToBoxAndThenApplies) {
  Open();
  for (const char* box :
       {"txtNPOP", "txtITER", "txtPCROS", "txtFACT", "txtFACT1", "txtEPS", "txtIU"}) {
    ASSERT_TRUE(Box(box).hasFocus()) << box;
    QTest::keyClick(&Box(box), Qt::Key_Return);
    EXPECT_TRUE(window_->isVisible());
  }
  QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_TRUE(dialogs_.shown.empty());
}

}  // namespace
}  // namespace velmora

// The settings window through its keys and buttons.
#include "app/settings/frmParametros.h"
#include "tests/support/Windows.h"

namespace velmora {
namespace {

class SettingsWindow : public testing::Test {
 protected:
  void Open(char separator = '.') {
    session_.separator = separator;
    window_ = std::make_unique<frmParametros>(session_, dialogs_);
    test::ShowActive(*window_);
  }
  QLineEdit& Box(const char* name) { return *test::Child<QLineEdit>(*window_, name); }
  void Type(const char* box, const char* keys) { test::Type(*window_, box, keys); }
  void Press(const char* button) { test::Click(*window_, button); }

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
  Type("txtEPS", "0,0000001");
  Press("cdmAtualizar");
  EXPECT_EQ(session_.settings, (EstimationSettings{10, 200, 0.8, 0.8, 0.01, 1e-7, 5471}));
  Open(',');
  Type("txtIU", "1234");
  Press("cdmFechar");
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(session_.settings.IU, 5471);
}

TEST_F(SettingsWindow, StaysAtTheBoxThatIsOutOfBoundsOrNoNumber) {
  Open();
  Type("txtITER", "300");
  for (const auto& [box, text] : {std::pair{"txtPCROS", "0.91"}, {"txtEPS", "."}}) {
    const std::string before = test::TextOf(*window_, box);
    Type(box, text);
    Press("cdmAtualizar");
    EXPECT_EQ(session_.settings, EstimationSettings());
    EXPECT_TRUE(window_->isVisible() && Box(box).hasFocus()) << box;
    EXPECT_EQ(test::TextOf(*window_, box), text);
    EXPECT_EQ(dialogs_.shown.back(),
              (std::pair{Message{{TextId::OutOfBounds}, TextId::Attention, Icon::Critical},
                         Buttons::Ok}));
    Type(box, before.c_str());
  }
  EXPECT_EQ(dialogs_.shown.size(), 2U);
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

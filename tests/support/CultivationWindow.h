// The cultivation window through its controls, for tests that work as a user does.
#pragma once

#include <QComboBox>
#include <QPlainTextEdit>
#include <memory>
#include <string>
#include <vector>

#include "app/cultivation/frmCultBatelada.h"
#include "tests/support/Windows.h"

namespace velmora {

/// Yeast on molasses, 75 g/L of sugar (Zentou et al. 2019, Biomolecules 9, 308).
inline Experiment Molasses(std::int16_t number = 1) {
  Experiment e;
  e.number = number, e.finalTime = 45;
  e.time = {0, 2, 4, 6, 10, 16, 22, 34, 45};
  e.Cx = {1.1059872, 1.1495275, 1.9303926, 2.7112577, 5.3252807,
          11.72252,  21.279594, 21.328758, 21.27246};
  e.Cs = {75.04926, 73.038826, 70.92306, 68.06932, 58.518, 33.73693, 1.3718239, 0, 0};
  e.Cp = {0, 0.57032937, 1.6142677, 2.5530024, 6.1151433, 18.411366, 31.23335, 31.5461, 31.384602};
  return e;
}

/// A box that is typed into, or, without a text, a button that is clicked.
struct Edit {
  const char* control;
  const char* text = nullptr;
};

// clang-format off
inline const std::vector<Edit> kFilled = {
    {"optED"}, {"optPAC"}, {"cmdConfirmarModelo"}, {"optGlobal"}, {"txtYxs", "0.286"},
    {"txtYps", "0.431"}, {"chkMiMax"}, {"txtMiMax", "0.2"}, {"txtLimInf(1)", "0.05"},
    {"txtLimSup(1)", "0.5"}, {"chkKs"}, {"txtKs", "10"}, {"txtLimInf(2)", "1"},
    {"txtLimSup(2)", "40"}};
// clang-format on

class CultivationWindow : public testing::Test {
 protected:
  CultivationWindow() { session.language = Language::English; }

  void Open(int experiments = 1) {
    for (int i = 1; i <= experiments; ++i)
      session.lists.Append(Molasses(static_cast<std::int16_t>(i)), {});
    window = std::make_unique<frmCultBatelada>(session, dialogs);
    window->resize(1270, 740);
    window->show();
  }
  /// With the first experiment's conditions entered.
  void OpenFilled(int experiments = 1) {
    Open(experiments);
    Do(kFilled);
  }
  void OpenSaved(int experiments = 1) {
    OpenFilled(experiments);
    Click("cdmSalvar");
  }
  void Do(const std::vector<Edit>& edits) const {
    for (const Edit& edit : edits)
      edit.text != nullptr ? Type(edit.control, edit.text) : Click(edit.control);
  }
  void Estimate() {
    dialogs.answers.push_back(Answer::Yes);
    Click("cmdAjustar");
  }

  void Show(const Change& change) { window->Show(change); }

  template <class Widget>
  Widget* Find(const char* name) const {
    return test::Child<Widget>(*window, name);
  }
  void Type(const char* box, const char* text) const { test::Type(*window, box, text); }
  void Click(const char* button) const { test::Click(*window, button); }
  void Choose(const char* model) const {
    auto* const list = Find<QComboBox>("cmbModelo");
    QTest::keyClick(list, Qt::Key_Home);
    const int index = list->findText(QLatin1StringView(model));
    while (list->currentIndex() < index) QTest::keyClick(list, Qt::Key_Down);
  }
  std::string TextOf(const char* box) const { return test::TextOf(*window, box); }
  bool Enabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
  std::string ToolTip(const char* name) const {
    return Find<QWidget>(name)->toolTip().toStdString();
  }
  std::string Results() const {
    return Find<QPlainTextEdit>("txtResultados")->toPlainText().toStdString();
  }

  Session session;
  ScriptedDialogs dialogs{session};
  std::unique_ptr<frmCultBatelada> window;
};

}  // namespace velmora

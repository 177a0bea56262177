#include "app/shell/FileCommands.h"

#include "app/cultivation/frmCultBatelada.h"
#include "app/experiments/frmMsFlexGrid.h"
#include "app/shell/WorkWindows.h"
#include "data/ExperimentFile.h"
#include "session/Operations.h"

namespace velmora {

FileCommands::FileCommands(Session& session, Dialogs& dialogs, WorkWindows& windows, QWidget* owner)
    : QObject(owner), session_(session), dialogs_(dialogs), windows_(windows), owner_(owner) {}

Unsaved FileCommands::WhatIsUnsaved() const {
  return UnsavedOf(session_, windows_.Cultivation().EntryChanged());
}

bool FileCommands::Confirmed(const Message& question, bool losesWork) {
  return dialogs_.Show(owner_, question, losesWork ? Buttons::NoYes : Buttons::YesNo) ==
         Answer::Yes;
}

bool FileCommands::MayOpenExperiments() {
  const auto question = AskBeforeOpeningExperiments(session_);
  return !question || Confirmed(*question, WhatIsUnsaved().Any());
}

bool FileCommands::MayOpenConditions() {
  const Unsaved unsaved = WhatIsUnsaved();
  if (const auto question = AskBeforeOpeningConditions(session_))
    return Confirmed(*question, unsaved.conditions || unsaved.form);
  return !unsaved.form || Confirmed(AskBeforeReplacingForm(), true);
}

void FileCommands::OpenExperiments() {
  if (MayOpenExperiments() && windows_.Experiments().cmdAbrirOkSub()) ShowOpenedExperiments();
}

void FileCommands::ShowOpenedExperiments() {
  if (!session_.lists.Empty()) windows_.Experiments().GraficoSub();
  windows_.ShowExperiments();
}

void FileCommands::OpenFiles(const QStringList& files) {
  QStringList conditions;
  for (const QString& file : files) {
    if (HoldsConditions(LocalPath(file)))
      conditions.append(file);
    else if (MayOpenExperiments() && windows_.Experiments().MayLeave() &&
             windows_.Experiments().Open(file))
      ShowOpenedExperiments();
  }
  for (const QString& file : conditions) {
    if (session_.lists.Empty()) {
      dialogs_.Show(owner_, Attention({TextId::ExperimentsFirst}));
      OpenExperiments();
    }
    if (session_.lists.Empty() || !MayOpenConditions()) return;
    windows_.Cultivation().Open(file);
    windows_.ShowCultivation();
  }
}

void FileCommands::OpenConditions() {
  if (MayOpenConditions()) windows_.Cultivation().AbrirCondBat();
}

void FileCommands::SaveExperiments() {
  windows_.Experiments().OkSub();
}

void FileCommands::SaveConditions() {
  windows_.Cultivation().SalvarArqCondBat();
}

bool FileCommands::SaveAll() {
  if (WhatIsUnsaved().entry) windows_.Experiments().Save();
  if (WhatIsUnsaved().form) windows_.Cultivation().SalvarCondCult();
  const Unsaved unsaved = WhatIsUnsaved();
  if (unsaved.entry || unsaved.form) return false;
  if (unsaved.experiments > 0) SaveExperiments();
  if (unsaved.conditions) {
    // Only from their own window are they written so that they can be read again.
    windows_.ShowCultivation();
    SaveConditions();
  }
  return !WhatIsUnsaved().Any();
}

}  // namespace velmora

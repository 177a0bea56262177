// Opening and saving of experiments and conditions, with the questions before it.
#pragma once

#include <QObject>
#include <QStringList>

#include "app/widgets/Dialogs.h"
#include "session/Unsaved.h"

namespace velmora {

class WorkWindows;

class FileCommands : public QObject {
  Q_OBJECT

 public:
  /// `owner`: over which questions stand.
  FileCommands(Session& session, Dialogs& dialogs, WorkWindows& windows, QWidget* owner);

  void OpenExperiments();
  void OpenConditions();
  /// Opens each file in the window that its content belongs to: experiments first, then conditions,
  /// for which the user is asked to choose the experiments where there are none.
  void OpenFiles(const QStringList& files);
  void SaveExperiments();
  void SaveConditions();
  /// Saves all that no file holds, as far as the user goes along; whether nothing is left.
  bool SaveAll();
  Unsaved WhatIsUnsaved() const;

 private:
  bool Confirmed(const Message& question, bool losesWork);
  bool MayOpenExperiments();
  bool MayOpenConditions();
  void ShowOpenedExperiments();

  Session& session_;
  Dialogs& dialogs_;
  WorkWindows& windows_;
  QWidget* owner_;
};

}  // namespace velmora

// Experiment files on their way to and from the disk, with what the user is asked and told.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "app/widgets/Dialogs.h"
#include "session/Operations.h"
#include "session/Session.h"

namespace velmora {

class ExperimentFiles {
 public:
  /// `owner`: over which questions stand; it must outlive this.
  ExperimentFiles(Session& session, Dialogs& dialogs, QWidget& owner)
      : session_(session), dialogs_(dialogs), owner_(owner) {}

  /// Writes the experiments to a file that the user chooses; whether it came so far.
  bool Save();
  /// The file that the user chooses to open; empty where none is.
  QString Choose();
  /// The file, told of where it is not whole. Nothing where the user does not want it, or where it
  /// gives no experiment.
  std::optional<ExperimentsFile> Read(const QString& file);
  /// Tells once what is to be told of a file that was read.
  void Tell(const std::vector<Message>& remarks);

 private:
  Session& session_;
  Dialogs& dialogs_;
  QWidget& owner_;
};

}  // namespace velmora

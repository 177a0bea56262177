// Keeps the recovery file beside the user's work.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <string>

#include "data/FileFault.h"
#include "session/Recovery.h"

namespace velmora {

class RecoveryKeeper : public QObject {
  Q_OBJECT

 public:
  /// Writes within `delay` of the first change that is not in the file.
  RecoveryKeeper(const Session& session, RecoveryFile& file, QObject* parent = nullptr,
                 std::chrono::milliseconds delay = std::chrono::seconds(3));

  /// The state has changed; `unsaved`: something would be lost with it. The file is written soon
  /// after, or removed at once.
  void Note(bool unsaved);
  /// Removes the file for good: the program ends as the user wanted.
  void End();

 signals:
  /// The file cannot be written; told once, and tried again, as room may come.
  void Failed(const velmora::FileFault& fault);

 private:
  void Write();

  const Session& session_;
  RecoveryFile& file_;
  QTimer soon_;
  bool failed_ = false;
  bool ended_ = false;
};

}  // namespace velmora

// Undo and redo of what the user does to experiments and conditions.
#pragma once

#include <QObject>
#include <QUndoStack>
#include <memory>

#include "session/Snapshot.h"

namespace velmora {

class History : public QObject {
  Q_OBJECT

 public:
  explicit History(Session& session, QObject* parent = nullptr);

  /// The user has done something that can be undone. Steps in a row with one `place`, not 0, are
  /// the typing of one cell or box and are undone together.
  void Step(int place = 0);
  /// Something has changed that belongs to the last step, such as the curves of a fit.
  void Amend();
  void Undo();
  void Redo();
  bool CanUndo() const { return steps_.canUndo(); }
  bool CanRedo() const { return steps_.canRedo(); }

 signals:
  /// The state is that of a step before, or behind, again.
  void Restored(const velmora::Change& change);

 private:
  class StepCommand;
  /// The state between two steps, which both of them hold.
  using State = std::shared_ptr<Snapshot>;

  State Now() const;

  Session& session_;
  QUndoStack steps_;
  State state_;  // at the last step's end
};

}  // namespace velmora

// What would be lost with the state: what no file holds.
#pragma once

#include <optional>
#include <vector>

#include "language/Message.h"
#include "session/Session.h"

namespace velmora {

struct Unsaved {
  int experiments = 0;      // how many are in the list, where their file holds others
  bool conditions = false;  // stored, and not as their file holds them
  bool entry = false;       // of the experiment that is being entered
  bool form = false;        // of the cultivation window's boxes

  bool Any() const { return experiments > 0 || conditions || entry || form; }
};

/// `formChanged`: the cultivation window's boxes hold what is not stored.
Unsaved UnsavedOf(const Session& session, bool formChanged);

/// Names what is unsaved, a line for each.
std::vector<Piece> UnsavedPieces(const Unsaved& unsaved);

/// The question whether to go on although `unsaved` will be lost; nothing where nothing will.
std::optional<Message> AskBeforeClearing(const Unsaved& unsaved);
/// The same of the experiment at `place`, which must be one.
std::optional<Message> AskBeforeDeleting(const Session& session, int place);
/// The question before a file of conditions takes the place of what is in the boxes.
Message AskBeforeReplacingForm();
/// The question at the program's end; it names what is unsaved.
Message AskBeforeQuitting(const Unsaved& unsaved);

}  // namespace velmora

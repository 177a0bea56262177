#include "session/Unsaved.h"

#include <string>
#include <utility>

namespace velmora {
namespace {

/// Whether the file of this name is known to hold just these contents.
template <class Contents>
bool Holds(const std::map<std::string, Contents>& files, const std::string& name,
           const Contents& contents) {
  const auto at = files.find(name);
  return at != files.end() && at->second == contents;
}

bool ExperimentsWritten(const Session& session) {
  return session.lists.Empty() ||
         Holds(session.files.experiments, session.experimentsFile, session.lists);
}

bool ConditionsWritten(const Session& session) {
  return session.conditions.SavedCount() == 0 ||
         Holds(session.files.conditions, session.conditionsFile, session.conditions);
}

/// Whether what belongs to the experiment at `place` stands in files.
bool Written(const Session& session, int place) {
  const bool stored = place <= kMostExperiments && session.conditions.At(place).saved;
  const bool entered = session.draft.shown == place && session.EntryUnsaved();
  return ExperimentsWritten(session) && (!stored || ConditionsWritten(session)) && !entered;
}

Message Question(std::vector<Piece> pieces, const Unsaved& unsaved) {
  for (Piece& piece : UnsavedPieces(unsaved)) pieces.push_back(std::move(piece));
  return Attention(std::move(pieces), Icon::Question);
}

}  // namespace

Unsaved UnsavedOf(const Session& session, bool formChanged) {
  Unsaved unsaved;
  if (!ExperimentsWritten(session)) unsaved.experiments = session.lists.Count();
  unsaved.conditions = !ConditionsWritten(session);
  unsaved.entry = session.EntryUnsaved();
  unsaved.form = formChanged;
  return unsaved;
}

std::vector<Piece> UnsavedPieces(const Unsaved& unsaved) {
  std::vector<Piece> pieces{"\n\n", TextId::NotInAFile};
  const auto add = [&pieces](bool named, Piece piece) {
    if (!named) return;
    pieces.emplace_back("\n  - ");
    pieces.push_back(std::move(piece));
  };
  add(unsaved.experiments > 0, {TextId::UnsavedExperiments, {std::to_string(unsaved.experiments)}});
  add(unsaved.conditions, TextId::UnsavedConditions);
  add(unsaved.entry, TextId::UnsavedEntry);
  add(unsaved.form, TextId::UnsavedForm);
  return pieces;
}

std::optional<Message> AskBeforeClearing(const Unsaved& unsaved) {
  if (!unsaved.Any()) return std::nullopt;
  return Question({TextId::AskToClearAll}, unsaved);
}

std::optional<Message> AskBeforeDeleting(const Session& session, int place) {
  if (Written(session, place)) return std::nullopt;
  const std::string number = std::to_string(session.lists.At(place).number);
  return Message{{{TextId::AskToDelete, {number, std::to_string(place)}}},
                 TextId::DeleteExperiment,
                 Icon::Question};
}

Message AskBeforeReplacingForm() {
  return Question({TextId::OpeningConditionsDeletes, " ", TextId::AskToReplaceConditions},
                  {.form = true});
}

Message AskBeforeQuitting(const Unsaved& unsaved) {
  Message question{{TextId::AskToQuit}, "Velmora", Icon::Question};
  if (!unsaved.Any()) return question;
  for (Piece& piece : UnsavedPieces(unsaved)) question.pieces.push_back(std::move(piece));
  return question;
}

}  // namespace velmora

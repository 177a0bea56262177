#include "session/Session.h"

#include <algorithm>
#include <span>

namespace velmora {

bool ExperimentDraft::Unsaved() const {
  return edited && (!std::all_of(rows.begin(), rows.end(), IsEmpty) || !header.description.empty());
}

bool Session::EntryUnsaved() const {
  if (!draft.Unsaved() || draft.shown < 1 || draft.shown > lists.Count()) return draft.Unsaved();
  const Experiment& shown = lists.At(draft.shown);
  std::span<const GridRow> rows = draft.rows;
  while (!rows.empty() && IsEmpty(rows.back())) rows = rows.first(rows.size() - 1);
  if (rows.size() != shown.time.size() || draft.header != HeaderOf(shown, separator)) return true;
  const std::vector<GridRow> saved = RowsOf(shown, separator);
  return !std::equal(rows.begin(), rows.end(), saved.begin());
}

bool Session::CurvesPresent() const {
  return std::any_of(curves.begin(), curves.end(),
                     [](const ModelCurve& curve) { return curve.points > 0; });
}

}  // namespace velmora

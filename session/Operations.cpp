#include "session/Operations.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "cultivation/ConditionsFile.h"
#include "cultivation/FitSetUp.h"
#include "cultivation/OpenedConditions.h"
#include "cultivation/Simulation.h"
#include "data/ExperimentFile.h"
#include "data/FileBytes.h"
#include "data/MeasuredTable.h"
#include "data/TableWords.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

bool SameMeasurements(const Experiment& left, const Experiment& right) {
  return left.number == right.number && left.finalTime == right.finalTime &&
         left.time == right.time && left.Cx == right.Cx && left.Cs == right.Cs &&
         left.Cp == right.Cp;
}

/// Takes the curve of `place` away; whether there was one.
bool WithdrawCurve(Session& session, int place) {
  if (place > kMostExperiments) return false;
  ModelCurve& curve = session.curves.at(static_cast<std::size_t>(place) - 1);
  return std::exchange(curve, {}).points > 0;
}

Change Replace(Session& session, ExperimentLists lists) {
  session.lists = std::move(lists);
  session.conditions.Clear();
  session.curves = {};
  session.lastRun.reset();
  session.draft = {};
  session.formDraft = {};
  session.experimentsFile.clear();
  session.conditionsFile.clear();
  Change change;
  change.lists = change.conditions = change.curves = change.results = change.replaced = true;
  return change;
}

std::optional<Message> AskToReplace(TextId before, int count, TextId question) {
  if (count == 0) return std::nullopt;
  return Attention({before, " ", std::to_string(count), " ", question}, Icon::Question);
}

/// The value that the last run found at a position.
std::optional<double> EstimatedAt(const Session& session, At position) {
  if (!session.lastRun) return std::nullopt;
  const SearchOutcome& last = session.lastRun->outcome;
  for (std::size_t j = 0; j < last.problem.variables.size(); ++j)
    if (last.problem.variables[j].position == position) return last.result.best[j];
  return std::nullopt;
}

bool SameFitRow(const FitRow& left, const FitRow& right, char separator) {
  if (left.ticked != right.ticked) return false;
  return !left.ticked || (left.lower.Number(separator) == right.lower.Number(separator) &&
                          left.upper.Number(separator) == right.upper.Number(separator));
}

/// Whether the user enters the box of a position: the model uses it, and neither yields nor
/// production decide it. `model` is null where it is not known.
bool TakesEntry(const CultivationForm& form, const Model* model, At position) {
  if (position == At::alpha)
    return form.yields != Yields::Global && form.production != Production::PNAC;
  return model == nullptr || FittableIndex(position) < 0 || Uses(*model, position);
}

/// Whether the form states something that is not stored. What a run found stands in the boxes
/// without being an edit of the user's: the next search starts from it. The ticks and bounds say
/// nothing to a simulation.
bool HoldsUnsaved(const Session& session, const CultivationForm& form, int place) {
  const ConditionsRecord& record = session.conditions.At(place);
  const CultivationForm stored = FormOf(record, session.conditions.fitted, session.separator);
  const Model* const model = RecognisedModel(record, session.conditions.fitted);
  const bool searches = form.method != Method::Manual;
  for (const Parameter& parameter : kParameters) {
    const At at = parameter.position;
    if (!TakesEntry(form, model, at)) continue;
    const std::optional<double> entered = form.At(at).Number(session.separator);
    const bool estimated = searches && entered && entered == EstimatedAt(session, at);
    if (entered != stored.At(at).Number(session.separator) && !estimated) return true;
  }
  for (std::size_t row = 0; searches && row < kFittable.size(); ++row)
    if (!SameFitRow(form.fit[row], stored.fit[row], session.separator)) return true;
  const bool sameModel = model != nullptr ? form.model == model->name : !form.modelConfirmed;
  return !sameModel || form.method != stored.method || form.production != stored.production ||
         form.yields != stored.yields || form.dataSet != stored.dataSet;
}

/// The values from which a search starts become those of every experiment: they are fitted for all
/// at once.
void StoreStart(CultivationConditions& conditions, const std::vector<FitVariable>& variables) {
  conditions.fitted = variables;
  for (int place = 1; place <= kMostExperiments; ++place)
    for (const FitVariable& variable : variables)
      if (ConditionsRecord& record = conditions.At(place); record.saved)
        record.row[variable.position] = variable.start;
}

bool IsTable(const std::string& path) {
  constexpr std::string_view kSuffixes[] = {".csv", ".tsv", ".txt", ".xlsx"};
  const std::string small = SmallLetters(path);
  return std::any_of(std::begin(kSuffixes), std::end(kSuffixes),
                     [&small](std::string_view suffix) { return small.ends_with(suffix); });
}

void AddRows(const Experiment& experiment, char separator, std::vector<Piece>& pieces) {
  constexpr std::size_t kMostRows = 4;
  std::string text = "\n\n";
  for (const std::string_view header : kGridHeaders) text += std::string(header) + "\t";
  const std::vector<GridRow> rows = RowsOf(experiment, separator);
  for (std::size_t k = 0; k < std::min(rows.size(), kMostRows); ++k) {
    text += "\n";
    for (const std::string& cell : rows[k]) text += cell + "\t";
  }
  pieces.emplace_back(text + (rows.size() > kMostRows ? "\n...\n" : "\n"));
}

/// The experiments of a table, with the first rows of the first of them.
Message PreviewOf(const TableRead& table, char separator) {
  constexpr int kMostListed = 9;
  const int count = table.lists.Count();
  std::vector<Piece> pieces{{TextId::TableHolds, {std::to_string(count)}}};
  for (int place = 1; place <= std::min(count, kMostListed); ++place) {
    const Experiment& each = table.lists.At(place);
    pieces.emplace_back("\n");
    pieces.emplace_back(TextId::ExperimentLine,
                        std::vector{std::to_string(place), std::to_string(each.number),
                                    std::to_string(each.Points()),
                                    PlainText(each.finalTime, separator), each.description});
  }
  if (count > kMostListed)
    pieces.insert(pieces.end(), {"\n", {TextId::AndMore, {std::to_string(count - kMostListed)}}});
  AddRows(table.lists.At(1), separator, pieces);
  for (const TableFault& remark : table.remarks)
    pieces.insert(pieces.end(), {"\n", {remark.text, remark.arguments}});
  pieces.insert(pieces.end(), {"\n", TextId::AskToTakeTable});
  return Attention(std::move(pieces), Icon::Question);
}

std::vector<Piece> Pieces(const TableFault& fault) {
  std::vector<Piece> pieces;
  if (fault.line > 0) pieces = {{TextId::LineOfFile, {std::to_string(fault.line)}}, ": "};
  if (fault.row > 0) pieces.emplace_back(fault.column + ": ");
  pieces.emplace_back(fault.text, fault.arguments);
  return pieces;
}

ExperimentsFile ReadTableFile(const Session& session, const std::string& path) {
  const FileBytes bytes = ReadWholeFile(path);
  ExperimentsFile file{path, {}, bytes.fault};
  if (file.fault) return file;
  TableRead table = ReadTable(bytes.bytes, {});
  if (table.fault) {
    std::vector<Piece> pieces{TextId::TableUnread, ".\n" + path + "\n"};
    for (Piece& piece : Pieces(*table.fault)) pieces.push_back(std::move(piece));
    file.refusal = Message{std::move(pieces), TextId::Error, Icon::Critical};
    return file;
  }
  file.preview = PreviewOf(table, session.separator);
  file.lists = std::move(table.lists);
  if (auto remark = TellMoreThanNine(file.lists)) file.remarks.push_back(std::move(*remark));
  return file;
}

}  // namespace

bool HoldsMeasurements(const ExperimentLists& lists, const Experiment& experiment) {
  const auto& all = lists.Experiments();
  return std::any_of(all.begin(), all.end(),
                     [&](const Experiment& each) { return SameMeasurements(each, experiment); });
}

ExperimentSaved SaveExperiment(Session& session, Experiment experiment, DisplayEntry display,
                               int shown) {
  ExperimentLists& lists = session.lists;
  const int place = PlaceToSave(lists, experiment.number, shown);
  const bool remeasured = place <= lists.Count() && !SameMeasurements(lists.At(place), experiment);
  if (!SaveExperiment(lists, std::move(experiment), std::move(display), shown)) return {};
  ExperimentSaved saved{place, {}};
  saved.change.lists = true;
  if (!remeasured) return saved;
  saved.change.remeasured = place;
  saved.change.curves = WithdrawCurve(session, place);
  return saved;
}

ExperimentDeleted DeleteExperiment(Session& session, int place) {
  ExperimentDeleted deleted;
  deleted.refusal = session.lists.Delete(place);
  if (deleted.refusal) return deleted;
  Change& change = deleted.change;
  change.lists = true;
  change.deleted = place;
  if (place > kMostExperiments) return deleted;
  change.conditions = change.curves = true;
  session.conditions.Remove(place);
  ModelCurves& curves = session.curves;
  std::move(curves.begin() + place, curves.end(), curves.begin() + place - 1);
  curves.back() = {};
  if (session.conditions.SavedCount() > 0) return deleted;
  session.lastRun.reset();
  change.results = true;
  return deleted;
}

Change TakeDisplays(Session& session, std::span<const DisplayEntry> displays) {
  const int count = std::min(session.lists.Count(), static_cast<int>(displays.size()));
  for (int place = 1; place <= count; ++place)
    session.lists.Display(place) = displays[static_cast<std::size_t>(place) - 1];
  Change change;
  change.lists = true;
  return change;
}

std::optional<Message> AskBeforeOpeningExperiments(const Session& session) {
  return AskToReplace(TextId::OpeningExperimentsDeletes, session.lists.Count(),
                      TextId::AskToReplaceExperiments);
}

ExperimentsFile ReadExperimentsFile(const Session& session, const std::string& path) {
  if (IsTable(path)) return ReadTableFile(session, path);
  ExperimentsFile file{path, {}, std::nullopt};
  file.fault = ReadExperiments(path, file.lists).fault;
  if (!file.fault && file.lists.Empty()) file.remarks = {Attention({TextId::FileHoldsNone})};
  if (!file.Usable()) return file;
  for (auto remark : {ReplaceUnknownDisplays(file.lists), TellRepeatedNumbers(file.lists),
                      TellMoreThanNine(file.lists)})
    if (remark) file.remarks.push_back(std::move(*remark));
  const std::string count = std::to_string(file.lists.Count());
  if (file.fault && !session.lists.Empty())
    file.question = Attention({{TextId::AskToTakeDamaged, {count}}}, Icon::Question);
  return file;
}

Change TakeExperiments(Session& session, ExperimentsFile file) {
  const Change change = Replace(session, std::move(file.lists));
  // Neither a damaged file nor a table is what would be written in its place.
  if (file.fault || file.preview) return change;
  session.experimentsFile = file.path;
  session.files.experiments[file.path] = session.lists;
  return change;
}

std::optional<FileFault> WriteExperimentsFile(Session& session, const std::string& path) {
  if (auto fault = WriteExperiments(session.lists, path)) return fault;
  session.experimentsFile = path;
  session.files.experiments[path] = session.lists;
  return std::nullopt;
}

std::optional<Message> TellMoreThanNine(const ExperimentLists& lists) {
  if (lists.Count() <= kMostExperiments) return std::nullopt;
  return Attention({{TextId::MoreThanNine, {std::to_string(lists.Count())}}});
}

Change ClearAll(Session& session) {
  return Replace(session, {});
}

ConditionsSaved SaveConditions(Session& session, const CultivationForm& form, int place) {
  if (place > kMostExperiments)
    return {{Refusal{Attention({TextId::CountsDiffer}), std::nullopt}, std::nullopt}, {}};
  const std::int16_t number = place == 0 ? std::int16_t{0} : session.lists.At(place).number;
  ConditionsSaved saved{SalvarCondCult(form, place, number, session.separator, session.conditions),
                        {}};
  saved.change.conditions = !saved.refusal;
  return saved;
}

Change ClearConditions(Session& session, int place) {
  Change change;
  if (place < 1 || place > kMostExperiments) return change;
  session.conditions.LimpaVet(place);
  if (session.conditions.SavedCount() == 0) session.conditions.Clear();
  change.conditions = true;
  return change;
}

std::optional<Message> AskBeforeOpeningConditions(const Session& session) {
  return AskToReplace(TextId::OpeningConditionsDeletes, session.conditions.SavedCount(),
                      TextId::AskToReplaceConditions);
}

ConditionsOpened OpenConditions(Session& session, const std::string& path) {
  const ConditionsRead read = ReadConditions(path);
  if (read.fault) return {read.fault, std::nullopt, {}, {}};
  OpenedConditions opened = CompareWithLists(read, session.lists.Experiments());
  if (opened.refusal) return {std::nullopt, std::move(opened.refusal), {}, {}};
  session.conditions = opened.conditions;
  session.curves = {};
  session.conditionsFile = path;
  session.files.conditions[path] = session.conditions;
  ConditionsOpened done{std::nullopt, std::nullopt, std::move(opened.messages), {}};
  done.change.conditions = done.change.curves = true;
  return done;
}

std::optional<Message> RefuseConditionsFile(const Session& session) {
  if (session.lists.Empty() || session.conditions.SavedCount() == 0)
    return Attention({TextId::NoConditionsAdded});
  return RefuseMissing(session.lists.Experiments(), session.conditions);
}

std::optional<FileFault> WriteConditionsFile(Session& session, const std::string& path) {
  if (auto fault = WriteConditions(session.conditions, session.lists.Count(),
                                   session.activeWindow == kCultivationWindow, path))
    return fault;
  session.conditionsFile = path;
  session.files.conditions[path] = session.conditions;
  return std::nullopt;
}

std::optional<Refusal> RefuseStart(const Session& session, const CultivationForm& form, int place) {
  const std::vector<FitVariable> table = VarAjustadas(form, session.separator);
  // A simulation fits nothing, so that nothing need be ticked.
  auto refusal = form.method == Method::Manual ? RefuseFitRows(table) : ChecarVarAjustadas(table);
  if (refusal) return refusal;
  if (auto message = RefuseRun(session.lists.Experiments(), session.conditions))
    return Refusal{*message, std::nullopt};
  if (form.method == Method::None) return Refusal{Attention({TextId::NoMethod}), std::nullopt};
  if (!HoldsUnsaved(session, form, place)) return std::nullopt;
  const std::string number = std::to_string(session.lists.At(place).number);
  return Refusal{Attention({TextId::SaveConditionsOf, number, TextId::BeforeRun}), std::nullopt};
}

Simulated Simulate(Session& session) {
  ModelCurves curves{};
  Simulated simulated{Manual(session.conditions, session.lists.Count(), curves), {}};
  simulated.change = ShowCurves(session, curves);
  return simulated;
}

FitProblem StartSearch(Session& session, const CultivationForm& form) {
  FitProblem problem = ProblemOf(session.lists.Experiments(), session.conditions);
  problem.variables = VarAjustadas(form, session.separator);
  if (BoundsAreOrdered(problem.variables)) StoreStart(session.conditions, problem.variables);
  return problem;
}

Change EndSearch(Session& session, SearchOutcome outcome) {
  if (!outcome.result.HasResult()) return {};
  const Change change = ShowCurves(session, outcome.curves);
  session.lastRun = std::make_shared<const FinishedRun>(
      FinishedRun{std::move(outcome), session.lists, session.conditions});
  return change;
}

Change ShowCurves(Session& session, const ModelCurves& curves) {
  session.curves = curves;
  Change change;
  change.curves = true;
  return change;
}

Change TogglePublication(Session& session) {
  session.forPublication = !session.forPublication;
  Change change;
  change.gridLines = true;
  return change;
}

Change ToggleGridLines(Session& session) {
  session.gridLines = !session.gridLines;
  Change change;
  change.gridLines = true;
  return change;
}

}  // namespace velmora

#include "session/Recovery.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <utility>

#include "cultivation/ConditionsFile.h"
#include "data/ExperimentFile.h"
#include "data/FileBytes.h"
#include "data/SafeSave.h"
#include "session/FormText.h"

namespace velmora {
namespace {

// The text is a title and parts, each a line "name length" with so many bytes behind it; the last
// part, without which the text is not whole, is "end".
constexpr std::string_view kTitle = "velmora recovery 1\n";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kExperimentsFile = "experiments-file",
                           kConditionsFile = "conditions-file", kExperiments = "experiments",
                           kConditions = "conditions", kStored = "stored", kDraft = "draft",
                           kRows = "rows", kForm = "form", kEnd = "end";
using Parts = std::map<std::string, std::string, std::less<>>;

void AppendPart(std::string& text, std::string_view name, std::string_view bytes) {
  text += std::string(name) + " " + std::to_string(bytes.size()) + "\n";
  text += bytes;
  text += "\n";
}

/// Takes what stands before the next `mark` off the text.
std::string_view TakeTo(std::string_view& text, char mark) {
  const std::size_t end = std::min(text.find(mark), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

int WholeNumber(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::optional<Parts> PartsOf(std::string_view text) {
  if (!text.starts_with(kTitle)) return std::nullopt;
  text.remove_prefix(kTitle.size());
  Parts parts;
  while (!text.empty()) {
    const std::string name(TakeTo(text, ' '));
    const int length = WholeNumber(TakeTo(text, '\n'));
    if (name == kEnd) return parts;
    if (length < 0 || static_cast<std::size_t>(length) >= text.size()) return std::nullopt;
    parts[name] = text.substr(0, static_cast<std::size_t>(length));
    text.remove_prefix(static_cast<std::size_t>(length) + 1);
  }
  return std::nullopt;
}

/// Which of the conditions' places are stored, a digit for each.
std::string StoredPlaces(const CultivationConditions& conditions) {
  std::string places;
  for (int place = 1; place <= kMostExperiments; ++place)
    places += conditions.At(place).saved ? '1' : '0';
  return places;
}

std::string DraftText(const ExperimentDraft& draft) {
  return std::to_string(draft.shown) + "\n" + (draft.edited ? "1\n" : "0\n") + draft.header.number +
         "\n" + draft.header.finalTime + "\n" + draft.header.description + "\n";
}

ExperimentDraft DraftOf(std::string_view text, std::string_view rows, int experiments) {
  ExperimentDraft draft;
  draft.shown = std::clamp(WholeNumber(TakeTo(text, '\n')), 0, experiments);
  draft.edited = TakeTo(text, '\n') == "1";
  for (std::string* const box :
       {&draft.header.number, &draft.header.finalTime, &draft.header.description})
    *box = TakeTo(text, '\n');
  for (const std::vector<std::string>& cells : ParseBlock(rows)) {
    GridRow& row = draft.rows.emplace_back();
    std::copy_n(cells.begin(), std::min(cells.size(), row.size()), row.begin());
  }
  return draft;
}

std::string BlockOf(const std::vector<GridRow>& rows) {
  GridBlock block;
  for (const GridRow& row : rows) block.emplace_back(row.begin(), row.end());
  return BlockText(block);
}

/// Where the user's programs keep their state; empty where the user has no home.
std::filesystem::path StateHome() {
  const char* const given = std::getenv("XDG_STATE_HOME");
  if (given != nullptr && *given == '/') return given;
  const char* const home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') return {};
  return std::filesystem::path(home) / ".local" / "state";
}

std::string LockOf(const std::string& path) {
  return path + ".lock";
}

}  // namespace

std::string RecoveryText(const Session& session) {
  std::string text(kTitle);
  const int places = std::min(session.lists.Count(), kMostExperiments);
  AppendPart(text, kExperimentsFile, session.experimentsFile);
  AppendPart(text, kConditionsFile, session.conditionsFile);
  AppendPart(text, kExperiments, std::string(kUtf8Mark) + ExperimentText(session.lists));
  AppendPart(text, kConditions,
             std::string(kUtf8Mark) + ConditionsText(session.conditions, places, true));
  AppendPart(text, kStored, StoredPlaces(session.conditions));
  AppendPart(text, kDraft, DraftText(session.draft));
  AppendPart(text, kRows, BlockOf(session.draft.rows));
  AppendPart(text, kForm, FormText(session.formDraft));
  AppendPart(text, kEnd, "");
  return text;
}

std::optional<Change> Recover(Session& session, std::string_view text) {
  std::optional<Parts> parts = PartsOf(text);
  if (!parts) return std::nullopt;
  ExperimentLists lists;
  if (ReadExperimentBytes((*parts)[std::string(kExperiments)], "", lists).fault)
    return std::nullopt;
  ConditionsRead conditions = ReadConditionsBytes((*parts)[std::string(kConditions)], "");
  if (conditions.fault) return std::nullopt;
  const std::string& stored = (*parts)[std::string(kStored)];
  for (std::size_t i = 0; i < std::size_t{kMostExperiments}; ++i)
    if (i >= stored.size() || stored[i] != '1')
      conditions.conditions.At(static_cast<int>(i) + 1) = {};
  Change change = ClearAll(session);
  session.lists = std::move(lists);
  session.conditions = std::move(conditions.conditions);
  session.draft =
      DraftOf((*parts)[std::string(kDraft)], (*parts)[std::string(kRows)], session.lists.Count());
  session.formDraft = FormOfText((*parts)[std::string(kForm)]);
  session.formDraft.place = std::clamp(session.formDraft.place, 0, session.lists.Count());
  change.form = session.formDraft.edited;
  session.experimentsFile = (*parts)[std::string(kExperimentsFile)];
  session.conditionsFile = (*parts)[std::string(kConditionsFile)];
  return change;
}

std::string StateFolder() {
  const std::filesystem::path home = StateHome();
  return home.empty() ? "" : (home / "velmora").string();
}

RecoveryFile::RecoveryFile(const std::string& folder) {
  constexpr int kMostFiles = 64;
  std::error_code error;
  if (!folder.empty()) std::filesystem::create_directories(folder, error);
  if (folder.empty() || error) return;
  const auto name = [&folder](int i) { return folder + "/recovery-" + std::to_string(i); };
  // What was left behind comes first, so that it is offered although a lower name is free.
  for (const bool left : {true, false})
    for (int i = 1; i <= kMostFiles; ++i)
      if ((!left || std::filesystem::exists(name(i), error)) && Hold(name(i))) return;
}

RecoveryFile::~RecoveryFile() {
  if (lock_.IsOpen()) RemoveFile(LockOf(path_));
}

bool RecoveryFile::Hold(const std::string& path) {
  OpenFile lock = OpenFile::ToLock(LockOf(path));
  if (!lock.IsOpen() || !lock.TryLock()) return false;
  // Another program may have removed the lock's name between the two calls.
  const auto held = lock.State(), named = StateOf(LockOf(path));
  if (!held || !named || held->identity != named->identity) return false;
  lock_ = std::move(lock);
  path_ = path;
  return true;
}

std::optional<std::string> RecoveryFile::Left() const {
  std::error_code error;
  if (path_.empty() || !std::filesystem::exists(path_, error)) return std::nullopt;
  return ReadWholeFile(path_).bytes;
}

std::optional<FileFault> RecoveryFile::Write(std::string_view text) {
  if (path_.empty()) return std::nullopt;
  return SafeSave(path_, text);
}

void RecoveryFile::Remove() {
  std::error_code error;
  if (!path_.empty()) std::filesystem::remove(path_, error);
}

std::string RecoveryFile::SetAside() {
  std::error_code error;
  const std::filesystem::path aside =
      std::filesystem::path(path_).replace_filename("recovery-declined");
  if (!path_.empty()) std::filesystem::rename(path_, aside, error);
  return aside.string();
}

}  // namespace velmora

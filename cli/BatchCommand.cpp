// velmora-cli batch: many commands from a list, one JSON line in, one JSON line out.
#include <cerrno>
#include <charconv>
#include <limits>
#include <nlohmann/json.hpp>

#include "cli/Arguments.h"
#include "cli/Json.h"
#include "data/FileBytes.h"
#include "data/SystemFault.h"
#include "platform/System.h"

namespace velmora::cli {
namespace {

using Json = nlohmann::ordered_json;

struct ListLine {
  int number;  // in the list, from 1
  std::string text;
};

std::vector<ListLine> LinesOf(std::string_view text) {
  std::vector<ListLine> lines;
  for (int number = 1; !text.empty(); ++number) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.find_first_not_of(" \t") != std::string_view::npos)
      lines.push_back({number, std::string(line)});
  }
  return lines;
}

/// The K-th of N parts, which follow each other in the list.
void KeepShard(const std::string& shard, std::vector<ListLine>& lines, const Wording& say) {
  const std::size_t mark = shard.find('/');
  int part = 0, parts = 0;
  const auto number = [](std::string_view text, int& into) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), into);
    return error == std::errc{} && end == text.data() + text.size();
  };
  const std::string_view view = shard;
  if (mark == std::string::npos || !number(view.substr(0, mark), part) ||
      !number(view.substr(mark + 1), parts) || part < 1 || part > parts)
    throw Failure{ExitCode::Usage, say(TextId::Malformed, {"--shard", shard, "K/N"})};
  const auto bound = [&](int before) {
    return lines.size() * static_cast<std::size_t>(before) / static_cast<std::size_t>(parts);
  };
  lines = {lines.begin() + static_cast<std::ptrdiff_t>(bound(part - 1)),
           lines.begin() + static_cast<std::ptrdiff_t>(bound(part))};
}

std::string TextOf(const Json& value) {
  return value.is_string() ? value.get<std::string>() : value.dump();
}

/// The command line that a line of the list stands for: "command", its files, then each other key
/// as an option, an array as one given again and again.
std::vector<std::string> ArgumentsOf(const Json& line) {
  std::vector<std::string> arguments = {"velmora-cli", TextOf(line.at("command"))};
  for (const char* const file : {"experiments", "conditions", "file"})
    if (line.contains(file)) arguments.push_back(TextOf(line.at(file)));
  for (const auto& [key, value] : line.items()) {
    if (key == "command" || key == "experiments" || key == "conditions" || key == "file" ||
        key == "id" || value == false)
      continue;
    for (const Json& each : value.is_array() ? value : Json::array({value})) {
      arguments.push_back("--" + key);
      if (each != true) arguments.push_back(TextOf(each));
    }
  }
  arguments.push_back("--json");
  return arguments;
}

std::string WithoutLineEnd(std::string text) {
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

/// What a command came to: its JSON line, of a result or of an error.
struct Done {
  ExitCode code;
  std::string json;
};

Done RunArguments(std::vector<std::string> words, const Console& console) {
  std::vector<const char*> argv;
  for (const std::string& word : words) argv.push_back(word.c_str());
  Output kept;
  try {
    Arguments arguments = ParseArguments(static_cast<int>(argv.size()), argv.data());
    GeneralOptions general = arguments.general;
    general.language = console.say.In();
    general.limit = console.Options().limit;
    general.quiet = true;
    general.timed = false;
    general.output.clear();
    const Console inside(general, kept);
    const auto run = [&](const auto& options) -> ExitCode {
      if constexpr (requires { options.json; }) {
        if constexpr (requires { options.output; })
          if (options.output == kStandard)
            throw Failure{ExitCode::Usage, console.say(TextId::NoStandardOutputInBatch)};
        return Run(options, inside);
      } else
        throw Failure{ExitCode::Usage, console.say(TextId::NotInBatch, {words.at(1)})};
    };
    const ExitCode code = std::visit(run, arguments.command);
    const std::string result = WithoutLineEnd(kept.Kept());
    return {code, "{\"result\":" + (result.empty() ? "null" : result) + "}"};
  } catch (const UsageError& error) {
    return {ExitCode::Usage, WithoutLineEnd(JsonOf(Failure{ExitCode::Usage, error.line}))};
  } catch (const Failure& failure) {
    return {failure.code, WithoutLineEnd(JsonOf(failure))};
  }
}

Done RunLine(const ListLine& line, const std::string& list, std::string& id,
             const Console& console) {
  const Json parsed = Json::parse(line.text, nullptr, false);
  if (!parsed.is_object() || !parsed.contains("command")) {
    const Failure failure{
        ExitCode::Usage, console.say(TextId::BatchLineWrong), {list, line.number}};
    return {failure.code, WithoutLineEnd(JsonOf(failure))};
  }
  if (parsed.contains("id")) id = parsed.at("id").dump();
  return RunArguments(ArgumentsOf(parsed), console);
}

/// What each line of results begins with; it tells a later run whose result it is.
std::string Beginning(const ListLine& line) {
  return "{\"line\":" + std::to_string(line.number) + ",\"sha256\":\"" + Sha256Of(line.text) + "\"";
}

std::string LineOf(const ListLine& line, const std::string& id, const Done& done) {
  return Beginning(line) + (id.empty() ? "" : ",\"id\":" + id) +
         ",\"code\":" + std::to_string(static_cast<int>(done.code)) + "," + done.json.substr(1) +
         "\n";
}

/// The file of results: what is there of an earlier run stays, but for a last line cut short.
class Results {
 public:
  Results(const std::string& path, const Console& console) : path_(path), console_(console) {
    if (path_.empty() || path_ == kStandard) return;
    file_ = OpenFile::ToContinue(path_);
    if (!file_->IsOpen()) Fail();
    if (!file_->TryLock()) throw Failure{ExitCode::File, console_.say(TextId::BatchInUse), {path_}};
  }

  /// How many of the lines are done. Throws a `Failure` where the file is of another list.
  std::size_t CountDone(const std::vector<ListLine>& lines) {
    if (!file_) return 0;
    FileBytes file = ReadWholeFile(path_, std::numeric_limits<std::size_t>::max());
    RequireDone(file.fault, console_.say);
    std::string text = std::move(file.bytes);
    text.erase(text.rfind('\n') + 1);
    if (!file_->Cut(text.size())) Fail();
    std::size_t done = 0;
    for (const ListLine& result : LinesOf(text)) {
      if (done == lines.size() || !result.text.starts_with(Beginning(lines[done])))
        throw Failure{
            ExitCode::Refused, console_.say(TextId::BatchOfOtherList), {path_, result.number}};
      if (result.text.find(",\"code\":0,") == std::string::npos) failed_ = true;
      ++done;
    }
    return done;
  }

  /// Each line is on the disk before the next command runs.
  void Append(const std::string& line) {
    if (!file_) return console_.Print(line);
    if (!file_->Write(line)) Fail();
    // A pipe or a device has no disk.
    if (!file_->Flush() && errno != EINVAL) Fail();
  }

  bool AnyFailed() const { return failed_; }

 private:
  [[noreturn]] void Fail() const {
    RequireDone(SystemFault(FileReason::CannotWrite, path_), console_.say);
    throw Failure{ExitCode::File, path_};
  }

  const std::string path_;
  const Console& console_;
  std::optional<OpenFile> file_;
  bool failed_ = false;
};

bool WasStopped(ExitCode code) {
  return static_cast<int>(code) > 128;
}

}  // namespace

ExitCode Run(const BatchOptions& options, const Console& console) {
  RequireOtherFile(options.list, options.output, console.say);
  std::vector<ListLine> lines = LinesOf(console.Read(options.list));
  if (options.shard) KeepShard(*options.shard, lines, console.say);
  Results results(options.output, console);
  std::size_t done = results.CountDone(lines);
  bool failed = results.AnyFailed();
  for (; done < lines.size(); ++done) {
    std::string id;
    const Done line = RunLine(lines[done], options.list, id, console);
    if (WasStopped(line.code)) return line.code;  // to be run again by the next batch
    results.Append(LineOf(lines[done], id, line));
    failed = failed || line.code != ExitCode::Done;
  }
  return failed ? ExitCode::Refused : ExitCode::Done;
}

}  // namespace velmora::cli

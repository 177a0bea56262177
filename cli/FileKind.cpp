#include "cli/FileKind.h"

#include <algorithm>
#include <utility>

#include "cli/Failure.h"
#include "cultivation/ConditionsFile.h"
#include "data/ExperimentFile.h"
#include "data/FileText.h"
#include "data/SafeSave.h"

namespace velmora::cli {
namespace {

/// Line `number` (from 1) of a text, whose lines end in CR LF, LF or CR, without leading blanks.
std::string LineOf(std::string_view text, int number) {
  std::string_view rest = text;
  std::string_view line;
  for (int i = 1; i <= number; ++i) {
    line = rest.substr(0, rest.find_first_of("\r\n"));
    rest.remove_prefix(line.size());
    if (!rest.empty()) rest.remove_prefix(rest.starts_with("\r\n") ? 2 : 1);
  }
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return std::string(line);
}

}  // namespace

FileKind KindOf(std::string_view bytes) {
  const std::string title = LineOf(DecodeFile(bytes).text, 2);
  if (title == kExperimentsTitle) return FileKind::Experiments;
  // Many an editor writes UTF-8 without a mark.
  const bool conditions = title == kConditionsTitle || LineOf(bytes, 2) == kConditionsTitle;
  return conditions ? FileKind::Conditions : FileKind::Unknown;
}

bool HasBatchLine(std::string_view bytes) {
  return LineOf(DecodeFile(bytes).text, 3) == kBatchLine;
}

std::string LoadBytes(const std::string& path, FileKind wanted, const Wording& say) {
  FileBytes file = ReadWholeFile(path);
  if (file.fault) throw Failure{ExitCode::File, say.Of(*file.fault)};
  const FileKind kind = KindOf(file.bytes);
  if (kind != wanted && kind != FileKind::Unknown)
    throw Failure{ExitCode::File, PlaceInFile(path, 2) + say(wanted == FileKind::Experiments
                                                                 ? TextId::ExperimentsWanted
                                                                 : TextId::ConditionsWanted)};
  return std::move(file.bytes);
}

}  // namespace velmora::cli

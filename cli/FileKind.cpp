#include "cli/FileKind.h"

#include <algorithm>
#include <utility>

#include "cli/Failure.h"
#include "data/FileText.h"
#include "data/SafeSave.h"

namespace velmora::cli {
namespace {

constexpr std::string_view kExperimentsTitle = "Dados de entrada";
constexpr std::string_view kConditionsTitle = "Condições de cultivo";
constexpr std::string_view kBatchLine = "Batelada";

/// Line `number` (from 1) of a file, whose lines end in CR LF, LF or CR, without leading blanks.
std::string LineOf(std::string_view bytes, int number) {
  const std::string text = DecodeFile(bytes).text;
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
  const std::string title = LineOf(bytes, 2);
  if (title == kExperimentsTitle) return FileKind::Experiments;
  return title == kConditionsTitle ? FileKind::Conditions : FileKind::Unknown;
}

bool HasBatchLine(std::string_view bytes) {
  return LineOf(bytes, 3) == kBatchLine;
}

std::string LoadBytes(const std::string& path, FileKind wanted, const Wording& say) {
  FileBytes file = ReadWholeFile(path);
  if (file.fault) throw Failure{ExitCode::File, say.Of(*file.fault)};
  const FileKind kind = KindOf(file.bytes);
  if (kind != wanted && kind != FileKind::Unknown)
    throw Failure{ExitCode::File, PlaceInFile(path, 2) + say(wanted == FileKind::Experiments
                                                                 ? Phrase::ExperimentsWanted
                                                                 : Phrase::ConditionsWanted)};
  return std::move(file.bytes);
}

}  // namespace velmora::cli

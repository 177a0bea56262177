#include "cultivation/ConditionsFile.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "cultivation/CultivationForm.h"
#include "data/FileBytes.h"
#include "data/FileText.h"
#include "kinetics/KineticParameters.h"
#include "kinetics/Modelos.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr Limits kCount = {0, std::numeric_limits<std::int32_t>::max()};
constexpr Limits kFittedCount = {0, kMostFitted};
constexpr Limits kFittableCodes = {static_cast<int>(At::muMax), static_cast<int>(At::v)};

/// The number of experiments, from the fourth item; 0 where that is no count line, as in a file
/// without the line "Batelada".
int ReadCount(FieldReader& in) {
  const std::string_view line = in.Text(FileField::ExperimentCount);
  if (line.find('$') == std::string_view::npos) return 0;
  const auto count = static_cast<int>(in.WholeIn(FieldReader::RightOf('$', line), kCount));
  if (count > kMostExperiments) in.Fail(FileReason::TooManyExperiments, line);
  return count;
}

/// The data set and the names of the fitted parameters select nothing; a model may be left to what
/// the row's switches say.
bool StandsForAChoice(OptionPosition option, std::string_view text) {
  switch (option) {
    case OptionPosition::Method:
      return MethodNamed(text) != Method::None;
    case OptionPosition::Production:
      return ProductionNamed(text) != Production::None;
    case OptionPosition::Model:
      return text.empty() || FindModel(text) != nullptr;
    case OptionPosition::DataSet:
    case OptionPosition::Fitted:
      break;
  }
  return true;
}

void ReadRow(FieldReader& in, ConditionsRow& row, std::vector<FileFault>& remarks) {
  for (int position = 1; position <= ConditionsRow::kCount; ++position) {
    row[position] = in.Number(FileField::Condition, position);
    if (At{position} == At::Fp && YieldsOf(row) == Yields::None)
      remarks.push_back(in.FaultHere(FileReason::UnknownChoice, ShortestText(row[position])));
  }
}

void ReadOptions(FieldReader& in, OptionTexts& options, std::vector<FileFault>& remarks) {
  for (int position = 1; position <= kOptionTexts; ++position) {
    const std::string_view text = in.Text(FileField::OptionText, position);
    options[position] = text;
    if (!StandsForAChoice(OptionPosition{position}, text))
      remarks.push_back(in.FaultHere(FileReason::UnknownChoice, text));
  }
}

ConditionsRecord ReadRecord(FieldReader& in, std::vector<FileFault>& remarks) {
  ConditionsRecord record;
  record.saved = true;
  record.number = in.Marked<std::int16_t>('#', FileField::ExperimentNumber);
  ReadRow(in, record.row, remarks);
  ReadOptions(in, record.options, remarks);
  return record;
}

/// A parameter code, which must not be one of those read before it.
At ReadCode(FieldReader& in, int item, const std::vector<FitVariable>& before) {
  const At code{in.Whole<std::int16_t>(FileField::ParameterCode, kFittableCodes, item)};
  if (std::any_of(before.begin(), before.end(),
                  [code](const FitVariable& row) { return row.position == code; }))
    in.Fail(FileReason::FittedTwice, ShortestText(static_cast<double>(code)));
  return code;
}

std::vector<FitVariable> ReadFitted(FieldReader& in) {
  const int count = in.Whole<std::int16_t>(FileField::FittedCount, kFittedCount);
  std::vector<FitVariable> fitted;
  for (int j = 1; j <= count && in.Good(); ++j) {
    FitVariable row;
    row.upper = in.Number(FileField::UpperBound, j);
    row.lower = in.Number(FileField::LowerBound, j);
    row.position = ReadCode(in, j, fitted);
    row.start = in.Number(FileField::FourthValue, j);
    fitted.push_back(row);
  }
  std::sort(fitted.begin(), fitted.end(), [](const FitVariable& a, const FitVariable& b) {
    return FittableIndex(a.position) < FittableIndex(b.position);
  });
  return fitted;
}

void AppendRecord(std::string& text, const ConditionsRecord& record) {
  AppendMarked(text, '#', record.number);
  for (const double value : record.row.values) AppendLine(text, ShortestText(value));
  for (int position = 1; position <= kOptionTexts; ++position)
    AppendLine(text, record.options[position]);
}

/// The fitted-parameter table is one for the whole fit; every experiment's block repeats it.
void AppendFitted(std::string& text, const std::vector<FitVariable>& fitted) {
  AppendLine(text, ShortestText(static_cast<double>(fitted.size())));
  for (const auto& [position, lower, upper, start] : fitted)
    for (const double value : {upper, lower, static_cast<double>(position), start})
      AppendLine(text, ShortestText(value));
}

std::optional<FileFault> RefuseTexts(const CultivationConditions& conditions, int experiments,
                                     const std::string& path) {
  for (int place = 1; place <= experiments; ++place)
    for (int position = 1; position <= kOptionTexts; ++position)
      if (auto fault = RefuseText(conditions.At(place).options[position], FileField::OptionText,
                                  position, path))
        return fault;
  return std::nullopt;
}

}  // namespace

ConditionsRead ReadConditions(const std::string& path) {
  const FileBytes file = ReadWholeFile(path);
  if (file.fault) return {{}, 0, file.fault};
  return ReadConditionsBytes(file.bytes, path);
}

ConditionsRead ReadConditionsBytes(std::string_view bytes, const std::string& path) {
  const FileText file = DecodeFile(bytes);
  FieldReader in(file, path);
  in.Text(FileField::Title);
  if (in.Text(FileField::Title) == kExperimentsTitle)
    return {{}, 0, FileFault{FileReason::HoldsExperiments, path, 2}};
  in.Text(FileField::Title);
  ConditionsRead read;
  read.experiments = ReadCount(in);
  for (int place = 1; place <= read.experiments && in.Good(); ++place) {
    read.conditions.At(place) = ReadRecord(in, read.remarks);
    read.conditions.fitted = ReadFitted(in);
  }
  if (!in.Good()) return {{}, 0, in.Fault()};
  return read;
}

std::string ConditionsText(const CultivationConditions& conditions, int experiments,
                           bool cultivationActive) {
  std::string text;
  AppendLine(text, kFirstTitle);
  AppendLine(text, kConditionsTitle);
  if (cultivationActive) AppendLine(text, kBatchLine);
  AppendMarked(text, '$', experiments);
  for (int place = 1; place <= experiments; ++place) {
    AppendRecord(text, conditions.At(place));
    AppendFitted(text, conditions.fitted);
  }
  return text;
}

std::optional<FileFault> WriteConditions(const CultivationConditions& conditions, int experiments,
                                         bool cultivationActive, const std::string& path) {
  if (experiments > kMostExperiments)
    return FileFault{FileReason::TooManyExperiments, path, 0,
                     FileField::ExperimentCount,     0,    ShortestText(experiments)};
  if (auto fault = RefuseTexts(conditions, experiments, path)) return fault;
  return SaveText(ConditionsText(conditions, experiments, cultivationActive), path);
}

}  // namespace velmora

#include "data/ExperimentFile.h"

#include <array>
#include <cstdint>
#include <limits>
#include <utility>

#include "data/FileBytes.h"
#include "data/FileText.h"
#include "data/Windows1252.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr std::string_view kVisible = "True";
constexpr std::string_view kHidden = "False";
constexpr Limits kCount = {0, std::numeric_limits<std::int32_t>::max()};
constexpr Limits kPoints = {0, std::numeric_limits<std::int16_t>::max()};

/// One experiment as the file holds it.
struct Block {
  Experiment experiment;
  DisplayEntry display;
};

void ReadDisplay(FieldReader& in, DisplayEntry& display) {
  display.marker = in.Text(FileField::Marker);
  display.line = in.Whole<std::int16_t>(FileField::Line);
  display.colour = in.Whole<std::int32_t>(FileField::Colour);
  const std::string_view visibility = in.Text(FileField::Visibility);
  if (visibility == kVisible) display.visible = true;
  if (visibility == kHidden) display.visible = false;
}

/// Appends point `k`, a line "|t|Cs|Cx|Cp|", to the experiment.
void ReadPoint(FieldReader& in, int k, Experiment& experiment) {
  const std::string_view line = in.Text(FileField::Point, k);
  std::string_view cells = line.substr(LetterLength(line));
  for (auto* values : {&experiment.time, &experiment.Cs, &experiment.Cx, &experiment.Cp}) {
    const std::size_t bar = cells.find('|');
    if (bar == std::string_view::npos) return in.Fail(FileReason::MissingBar, line);
    values->push_back(in.NumberIn(cells.substr(0, bar)));
    cells.remove_prefix(bar + 1);
  }
}

Block ReadBlock(FieldReader& in) {
  Block block;
  Experiment& experiment = block.experiment;
  experiment.number = in.Marked<std::int16_t>('#', FileField::ExperimentNumber);
  experiment.description = in.Text(FileField::Description);
  const int points = in.Whole<std::int16_t>(FileField::PointCount, kPoints);
  experiment.finalTime = in.Number(FileField::FinalTime);
  ReadDisplay(in, block.display);
  for (int k = 1; k <= points && in.Good(); ++k) ReadPoint(in, k, experiment);
  experiment.verified = true;
  return block;
}

void AppendPoint(std::string& text, const std::array<double, 4>& values) {
  std::string line = "|";
  for (const double value : values) line += ShortestText(value) + "|";
  AppendLine(text, line);
}

void AppendBlock(std::string& text, const Experiment& experiment, const DisplayEntry& display) {
  AppendMarked(text, '#', experiment.number);
  AppendLine(text, experiment.description);
  AppendLine(text, PrintedText(experiment.Points()));
  AppendLine(text, PrintedText(experiment.finalTime));
  AppendLine(text, display.marker);
  AppendLine(text, PrintedText(display.line));
  AppendLine(text, PrintedText(display.colour));
  AppendLine(text, display.visible ? kVisible : kHidden);
  for (std::size_t k = 0; k < experiment.time.size(); ++k)
    AppendPoint(text, {experiment.time.at(k), experiment.Cs.at(k), experiment.Cx.at(k),
                       experiment.Cp.at(k)});
}

std::optional<FileFault> RefuseTexts(const ExperimentLists& lists, const std::string& path) {
  for (int place = 1; place <= lists.Count(); ++place) {
    const std::string& description = lists.At(place).description;
    if (auto fault = RefuseText(description, FileField::Description, place, path)) return fault;
    const std::string& marker = lists.Display(place).marker;
    if (auto fault = RefuseText(marker, FileField::Marker, place, path)) return fault;
  }
  return std::nullopt;
}

}  // namespace

ExperimentsRead ReadExperiments(const std::string& path, ExperimentLists& lists) {
  const FileBytes file = ReadWholeFile(path);
  if (file.fault) return {0, file.fault};
  return ReadExperimentBytes(file.bytes, path, lists);
}

ExperimentsRead ReadExperimentBytes(std::string_view bytes, const std::string& path,
                                    ExperimentLists& lists) {
  const FileText file = DecodeFile(bytes);
  FieldReader in(file, path);
  in.Text(FileField::Title);
  const std::string title(in.Text(FileField::Title));
  const auto promised = in.Marked<std::int32_t>('$', FileField::ExperimentCount, kCount);
  ExperimentsRead read;
  while (in.Good() && read.appended < promised) {
    Block block = ReadBlock(in);
    if (!in.Good()) break;
    if (!lists.Append(std::move(block.experiment), std::move(block.display))) {
      read.fault = FileFault{FileReason::OutOfRange,     path, in.Line(),
                             FileField::ExperimentCount, 0,    ShortestText(lists.Count() + 1)};
      return read;
    }
    ++read.appended;
  }
  read.fault = in.Fault();
  if (read.fault && read.appended == 0 && title == kConditionsTitle)
    read.fault = FileFault{FileReason::HoldsConditions, path, 2};
  return read;
}

bool HoldsConditions(const std::string& path) {
  ExperimentLists lists;
  const auto fault = ReadExperiments(path, lists).fault;
  return fault && fault->reason == FileReason::HoldsConditions;
}

std::string ExperimentText(const ExperimentLists& lists) {
  std::string text;
  AppendLine(text, kFirstTitle);
  AppendLine(text, kExperimentsTitle);
  AppendMarked(text, '$', lists.Count());
  for (int place = 1; place <= lists.Count(); ++place)
    AppendBlock(text, lists.At(place), lists.Display(place));
  return text;
}

std::optional<FileFault> WriteExperiments(const ExperimentLists& lists, const std::string& path) {
  if (auto fault = RefuseTexts(lists, path)) return fault;
  return SaveText(ExperimentText(lists), path);
}

}  // namespace velmora

#include "data/ExperimentFile.h"

#include <array>
#include <cstdint>
#include <limits>
#include <utility>

#include "app/Numbers.h"
#include "data/FieldReader.h"
#include "data/FileText.h"
#include "data/SafeSave.h"
#include "data/Windows1252.h"

namespace velmora {
namespace {

constexpr std::string_view kVisible = "True";
constexpr std::string_view kHidden = "False";
constexpr Limits kCount = {0, std::numeric_limits<std::int32_t>::max()};
constexpr Limits kPoints = {0, std::numeric_limits<std::int16_t>::max()};

/// One experiment as the file holds it.
struct Block {
  Class1 experiment;
  DisplayEntry display;
};

void ReadDisplay(FieldReader& in, DisplayEntry& display) {
  display.NMarcador = in.Text(FileField::Marker);
  display.NLinha = in.Whole<std::int16_t>(FileField::Line);
  display.NCor = in.Whole<std::int32_t>(FileField::Colour);
  const std::string_view visibility = in.Text(FileField::Visibility);
  if (visibility == kVisible) display.NGrafVisivel = true;
  if (visibility == kHidden) display.NGrafVisivel = false;
}

/// Appends point `k`, a line "|t|Cs|Cx|Cp|", to the experiment.
void ReadPoint(FieldReader& in, int k, Class1& experiment) {
  const std::string_view line = in.Text(FileField::Point, k);
  std::string_view cells = line.substr(LetterLength(line));
  for (auto* values :
       {&experiment.NVetTempo, &experiment.NVetCs, &experiment.NVetCx, &experiment.NVetCp}) {
    const std::size_t bar = cells.find('|');
    if (bar == std::string_view::npos) return in.Fail(FileReason::MissingBar, line);
    values->push_back(in.NumberIn(cells.substr(0, bar)));
    cells.remove_prefix(bar + 1);
  }
}

Block ReadBlock(FieldReader& in) {
  Block block;
  Class1& experiment = block.experiment;
  experiment.NExp = in.Marked<std::int16_t>('#', FileField::ExperimentNumber);
  experiment.NComentarios = in.Text(FileField::Description);
  experiment.NDados = in.Whole<std::int16_t>(FileField::PointCount, kPoints);
  experiment.NTempoFinal = in.Number(FileField::FinalTime);
  ReadDisplay(in, block.display);
  for (int k = 1; k <= experiment.NDados && in.Good(); ++k) ReadPoint(in, k, experiment);
  experiment.NVerificado = true;
  block.display.NNumExpGraf = experiment.NExp;
  return block;
}

void AppendPoint(std::string& text, const std::array<double, 4>& values) {
  std::string line = "|";
  for (const double value : values) line += ShortestText(value) + "|";
  AppendLine(text, line);
}

void AppendBlock(std::string& text, const Class1& experiment, const DisplayEntry& display) {
  AppendMarked(text, '#', experiment.NExp);
  AppendLine(text, experiment.NComentarios);
  AppendLine(text, PrintedText(experiment.NDados));
  AppendLine(text, PrintedText(experiment.NTempoFinal));
  AppendLine(text, display.NMarcador);
  AppendLine(text, PrintedText(display.NLinha));
  AppendLine(text, PrintedText(display.NCor));
  AppendLine(text, display.NGrafVisivel ? kVisible : kHidden);
  for (std::size_t k = 0; k < static_cast<std::size_t>(experiment.NDados); ++k)
    AppendPoint(text, {experiment.NVetTempo.at(k), experiment.NVetCs.at(k), experiment.NVetCx.at(k),
                       experiment.NVetCp.at(k)});
}

std::optional<FileFault> RefuseTexts(const ExperimentLists& lists, const std::string& path) {
  for (int place = 1; place <= lists.Count(); ++place) {
    const std::string& description = lists.Experiment(place).NComentarios;
    if (auto fault = RefuseText(description, FileField::Description, place, path)) return fault;
    const std::string& marker = lists.Display(place).NMarcador;
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

std::string ExperimentText(const ExperimentLists& lists) {
  std::string text;
  AppendLine(text, kFirstTitle);
  AppendLine(text, kExperimentsTitle);
  AppendMarked(text, '$', lists.Count());
  for (int place = 1; place <= lists.Count(); ++place)
    AppendBlock(text, lists.Experiment(place), lists.Display(place));
  return text;
}

std::optional<FileFault> WriteExperiments(const ExperimentLists& lists, const std::string& path) {
  if (auto fault = RefuseTexts(lists, path)) return fault;
  return SaveText(ExperimentText(lists), path);
}

}  // namespace velmora

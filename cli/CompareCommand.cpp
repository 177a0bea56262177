// velmora-cli compare: every model fitted to the same data, the best first.
#include <algorithm>
#include <atomic>
#include <chrono>

#include "cli/Commands.h"
#include "cli/FitProgress.h"
#include "cli/Given.h"
#include "cli/Json.h"
#include "inference/ComparisonTexts.h"
#include "language/Numbers.h"
#include "report/ComparisonReport.h"

namespace velmora::cli {
namespace {

constexpr std::string_view kAllModels = "all";
constexpr std::string_view kBetweenCells = "  ";

/// The models that a list names, "all" or "Monod,Aiba", in the catalogue's order.
std::vector<const Model*> ModelsNamed(const std::string& list, const Wording& say) {
  std::vector<const Model*> models;
  for (const Model& model : kModels) models.push_back(&model);
  if (list == kAllModels) return models;
  std::vector<const Model*> named;
  for (std::size_t at = 0; at <= list.size();) {
    const std::size_t end = std::min(list.find(',', at), list.size());
    named.push_back(&ModelNamed(list.substr(at, end - at), say));
    at = end + 1;
  }
  std::erase_if(models, [&](const Model* model) {
    return std::find(named.begin(), named.end(), model) == named.end();
  });
  return models;
}

/// Shows how many models are done, and ends it all on a signal, or where nobody can read that.
class CompareProgress : public ComparisonObserver {
 public:
  CompareProgress(std::size_t models, ProgressForm form, const StopSignals& signals,
                  const Console& console)
      : models_(models), form_(form), signals_(signals), console_(console), line_(console) {}

  bool StopRequested() override {
    const bool stop = signals_.Noted() != 0;
    if (stop) stopped_ = true;
    return stop || failed_;
  }
  /// Whether a search ended because of the signal.
  bool Stopped() const { return stopped_; }

  void Report(std::size_t done, double share) override {
    switch (form_) {
      case ProgressForm::None:
        return;
      case ProgressForm::BlocksToOutput:
        return done == 0 ? void() : PrintLine(done, share);
      case ProgressForm::JsonToError:
        return console_.Note(JsonOfComparison(done, models_, share));
      case ProgressForm::Line:
        return line_.Show(Line(done, share));
    }
  }

  void ClearLine() { line_.Clear(); }

  /// Why the progress could not be written to standard output.
  const std::optional<Failure>& Unwritten() const { return unwritten_; }

 private:
  std::string Line(std::size_t done, double share) const {
    const std::string of[] = {std::to_string(done), std::to_string(models_)};
    if (share == 0) return console_.say(TextId::ComparisonLine, {of[0], of[1]});
    const double passed =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    return console_.say(TextId::ComparisonLineWithTime,
                        {of[0], of[1], Formatted(passed * (1 - share) / share, {0, 0}, '.')});
  }

  void PrintLine(std::size_t done, double share) {
    try {
      if (!unwritten_) console_.Print(Line(done, share) + "\n");
    } catch (const Failure& failure) {
      unwritten_ = failure;
      failed_ = true;
    }
  }

  const std::size_t models_;
  const ProgressForm form_;
  const StopSignals& signals_;
  const Console& console_;
  TerminalLine line_;
  std::atomic<bool> stopped_ = false;
  std::atomic<bool> failed_ = false;  // whether `unwritten_` holds something
  std::optional<Failure> unwritten_;
  const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/// Columns as wide as their widest cell: names on the left, numbers on the right.
std::string Aligned(const std::vector<std::vector<std::string>>& rows) {
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const auto& row : rows)
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], LettersIn(row[i]));
  std::string text;
  for (const auto& row : rows) {
    text += Left(row.front(), widths.front());
    for (std::size_t i = 1; i + 1 < row.size(); ++i)
      text += kBetweenCells, text += Right(row[i], widths[i]);
    text += std::string(kBetweenCells) + row.back() + "\n";
  }
  return text;
}

std::string TextOf(const Comparison& comparison, const Inputs& inputs, bool allDigits,
                   const Wording& say) {
  const TextStyle style{say.In(), '.'};
  std::string text = ComparisonHeading(comparison, say.In()) + "\n";
  if (!comparison.Ranked().empty()) text += Aligned(ComparisonCells(comparison, style, allDigits));
  for (const auto& line : ComparisonRemarks(comparison, inputs.lists.Experiments(), style))
    text += line + "\n";
  for (const auto& line : BestModelLines(comparison, style, allDigits)) text += line + "\n";
  return text;
}

/// A comparison that ranks no model has not done what was asked for.
ExitCode CodeOf(const Comparison& comparison) {
  if (!comparison.Ranked().empty()) return ExitCode::Done;
  const bool fault =
      std::any_of(comparison.models.begin(), comparison.models.end(),
                  [](const ComparedModel& compared) { return compared.result.fault.has_value(); });
  return fault ? ExitCode::Arithmetic : ExitCode::Refused;
}

void TryReport(const CompareOptions& options, const Console& console) {
  if (options.report)
    console.TryOutput(*options.report, {options.inputs.experiments, options.inputs.conditions});
}

}  // namespace

ExitCode Run(const CompareOptions& options, const Console& console) {
  const Wording& say = console.say;
  TryReport(options, console);
  const std::vector<const Model*> models = ModelsNamed(options.models, say);
  SettingTexts settings;
  settings[kSeedOption] = options.seed;
  const EstimationSettings checked = SettingsOf(settings, say);
  const Inputs inputs = LoadInputs(options.inputs, console);
  RequireCultivation(inputs, say);
  WarnOfImpossible(inputs.lists, console);
  WarnOfUnscaled(inputs.lists, console);

  Provenance made = ProvenanceOf(inputs, console);
  made.seed = checked.IU;
  made.threads = options.threads;
  const StopSignals signals;
  CompareProgress progress(models.size(),
                           FormOf(options.progress, options.json, console.Options().quiet), signals,
                           console);
  const Comparison comparison = CompareModels(inputs.lists.Experiments(), inputs.conditions, models,
                                              {checked.IU, made.threads}, progress);
  progress.ClearLine();

  std::optional<FileFault> unsaved;
  if (options.report)
    unsaved =
        SaveComparison(comparison, inputs.lists.Experiments(), {say.In(), '.'}, *options.report);
  if (unsaved) console.Complain(say.Of(*unsaved));
  if (progress.Unwritten()) throw *progress.Unwritten();
  console.PrintOrRescue(options.json ? JsonOf(comparison, inputs, made, say)
                                     : TextOf(comparison, inputs, options.allDigits, say));
  if (unsaved) return ExitCode::File;
  return progress.Stopped() ? StoppedBy(signals.Noted()) : CodeOf(comparison);
}

}  // namespace velmora::cli

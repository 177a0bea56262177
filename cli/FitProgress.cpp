#include "cli/FitProgress.h"

#include "cli/Json.h"
#include "estimation/ResultTexts.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

constexpr std::chrono::milliseconds kBetweenLines{100};
constexpr Decimals kOne{1, 1};
constexpr Decimals kEight{8, 8};
constexpr std::string_view kEraseLine = "\r\033[K";

}  // namespace

ProgressForm FormOf(bool progress, bool json, bool quiet) {
  if (progress) return json ? ProgressForm::JsonToError : ProgressForm::BlocksToOutput;
  return !quiet && IsTerminal(Stream::Errors) ? ProgressForm::Line : ProgressForm::None;
}

void TerminalLine::Show(std::string_view line) {
  console_.Note(std::string(kEraseLine) + std::string(line));
  stands_ = true;
}

void TerminalLine::Clear() {
  if (stands_) console_.Note(kEraseLine);
  stands_ = false;
}

void FitProgress::Report(const Generation& generation) {
  switch (form_) {
    case ProgressForm::None:
      return;
    case ProgressForm::BlocksToOutput:
      return PrintBlock(generation);
    case ProgressForm::JsonToError:
      return console_.Note(JsonOf(generation, variables_));
    case ProgressForm::Line:
      return ShowLine(generation);
  }
}

void FitProgress::PrintBlock(const Generation& generation) {
  try {
    console_.Print(ProgressText(variables_, generation, {console_.say.In(), '.'}));
  } catch (const Failure& failure) {
    unwritten_ = failure;
  }
}

void FitProgress::ShowLine(const Generation& generation) {
  const Clock::time_point now = Clock::now();
  if (line_.Stands() && now - shown_ < kBetweenLines) return;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  const TextId line = method_ == Method::LM ? TextId::StartLine : TextId::GenerationLine;
  line_.Show(console_.say(
      line, {std::to_string(generation.number), Formatted(generation.score, kEight, '.'),
             Formatted(seconds, kOne, '.')}));
  shown_ = now;
}

}  // namespace velmora::cli

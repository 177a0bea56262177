#include "cli/FitProgress.h"

#include <unistd.h>

#include <atomic>

#include "cli/Json.h"
#include "estimation/ResultTexts.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

constexpr std::chrono::milliseconds kBetweenLines{100};
constexpr Decimals kOne{1, 1};
constexpr Decimals kEight{8, 8};
constexpr std::string_view kEraseLine = "\r\033[K";

// A signal handler has nothing else to write to; threads read it.
std::atomic<int> noted = 0;
static_assert(std::atomic<int>::is_always_lock_free);

/// The next signal does what it usually does: it ends the program.
extern "C" void NoteSignal(int signal) {
  noted = signal;
  for (const int each : kStopSignals) {
    struct sigaction now = {};
    sigaction(each, nullptr, &now);
    if (now.sa_handler == NoteSignal) std::signal(each, SIG_DFL);
  }
}

}  // namespace

StopSignals::StopSignals() {
  noted = 0;
  struct sigaction noting = {};
  noting.sa_handler = NoteSignal;
  noting.sa_flags = SA_RESTART;
  sigemptyset(&noting.sa_mask);
  for (const int signal : kStopSignals) sigaddset(&noting.sa_mask, signal);
  for (std::size_t i = 0; i < kStopSignals.size(); ++i) {
    sigaction(kStopSignals[i], nullptr, &before_[i]);
    if (before_[i].sa_handler != SIG_IGN) sigaction(kStopSignals[i], &noting, nullptr);
  }
}

StopSignals::~StopSignals() {
  for (std::size_t i = 0; i < kStopSignals.size(); ++i)
    sigaction(kStopSignals[i], &before_[i], nullptr);
}

int StopSignals::Noted() const {
  return noted;
}

ProgressForm FormOf(bool progress, bool json, bool quiet) {
  if (progress) return json ? ProgressForm::JsonToError : ProgressForm::BlocksToOutput;
  return !quiet && isatty(STDERR_FILENO) != 0 ? ProgressForm::Line : ProgressForm::None;
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

#include "cli/FitProgress.h"

#include "estimation/ResultTexts.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

constexpr std::chrono::milliseconds kBetweenLines{100};
constexpr Decimals kOne{1, 1};
constexpr Decimals kEight{8, 8};
constexpr std::string_view kEraseLine = "\r\033[K";

// A signal handler has nothing else to write to.
volatile std::sig_atomic_t interrupted = 0;

extern "C" void NoteInterrupt(int) {
  interrupted = 1;
}

}  // namespace

Interrupt::Interrupt() : before_{} {
  interrupted = 0;
  struct sigaction noting = {};
  noting.sa_handler = NoteInterrupt;
  noting.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  sigaction(SIGINT, &noting, &before_);
}

Interrupt::~Interrupt() {
  sigaction(SIGINT, &before_, nullptr);
}

bool Interrupt::Requested() const {
  return interrupted != 0;
}

void FitProgress::Report(const Generation& generation) {
  const TextStyle style{console_.say.In(), '.'};
  switch (form_) {
    case ProgressForm::None:
      return;
    case ProgressForm::BlocksToOutput:
      return console_.Print(ProgressText(variables_, generation, style));
    case ProgressForm::BlocksToError:
      return console_.Note(ProgressText(variables_, generation, style));
    case ProgressForm::Line:
      return ShowLine(generation);
  }
}

void FitProgress::ShowLine(const Generation& generation) {
  const Clock::time_point now = Clock::now();
  if (lineStands_ && now - shown_ < kBetweenLines) return;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  console_.Note(std::string(kEraseLine) +
                console_.say(TextId::GenerationLine, {std::to_string(generation.number),
                                                      Formatted(generation.score, kEight, '.'),
                                                      Formatted(seconds, kOne, '.')}));
  shown_ = now;
  lineStands_ = true;
}

void FitProgress::ClearLine() {
  if (lineStands_) console_.Note(kEraseLine);
  lineStands_ = false;
}

}  // namespace velmora::cli

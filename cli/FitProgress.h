// What is shown of a running search, which a signal stops.
#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>

#include "cli/Console.h"
#include "cultivation/CultivationForm.h"
#include "estimation/SearchResult.h"
#include "platform/System.h"

namespace velmora::cli {

enum class ProgressForm {
  None,
  BlocksToOutput,  // the text of each generation, a line for each model
  JsonToError,     // a line each
  Line,            // one line on the terminal, written over and over
};

/// What --progress and --json ask for; without, a line where standard error is a terminal.
ProgressForm FormOf(bool progress, bool json, bool quiet);

/// One line on the terminal, written over and over.
class TerminalLine {
 public:
  explicit TerminalLine(const Console& console) : console_(console) {}
  ~TerminalLine() { Clear(); }
  TerminalLine(const TerminalLine&) = delete;
  TerminalLine& operator=(const TerminalLine&) = delete;

  bool Stands() const { return stands_; }
  void Show(std::string_view line);
  void Clear();

 private:
  const Console& console_;
  bool stands_ = false;
};

/// Shows a search as it runs, and ends it on a signal, or where nobody can read its progress.
class FitProgress : public SearchObserver {
 public:
  FitProgress(std::span<const FitVariable> variables, Method method, ProgressForm form,
              const StopSignals& signals, const Console& console)
      : variables_(variables),
        method_(method),
        form_(form),
        signals_(signals),
        console_(console),
        line_(console) {}

  bool StopRequested() override { return signals_.Noted() != 0 || unwritten_; }
  void Report(const Generation& generation) override;
  void ClearLine() { line_.Clear(); }

  /// Why the progress could not be written to standard output.
  const std::optional<Failure>& Unwritten() const { return unwritten_; }

 private:
  using Clock = std::chrono::steady_clock;

  void PrintBlock(const Generation& generation);
  void ShowLine(const Generation& generation);

  std::span<const FitVariable> variables_;
  Method method_;
  ProgressForm form_;
  const StopSignals& signals_;
  const Console& console_;
  TerminalLine line_;
  std::optional<Failure> unwritten_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point shown_{};
};

}  // namespace velmora::cli

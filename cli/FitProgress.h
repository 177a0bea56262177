// What is shown of a running search, and its stop by Ctrl-C.
#pragma once

#include <chrono>
#include <csignal>
#include <span>
#include <string>

#include "cli/Console.h"
#include "estimation/EvolucaoDiferencial.h"

namespace velmora::cli {

/// While one of these lives the first Ctrl-C (SIGINT) is only noted; a second one ends the program
/// at once. A program started with SIGINT ignored, as a shell script's background job is, hears it
/// too. At most one lives at a time.
class Interrupt {
 public:
  Interrupt();
  ~Interrupt();
  Interrupt(const Interrupt&) = delete;
  Interrupt& operator=(const Interrupt&) = delete;

  bool Requested() const;

 private:
  struct sigaction before_;
};

enum class ProgressForm {
  None,
  BlocksToOutput,  // the text of each generation
  BlocksToError,
  Line,  // one line on the terminal, written over and over
};

class FitProgress : public SearchObserver {
 public:
  FitProgress(std::span<const FitVariable> variables, ProgressForm form, const Console& console)
      : variables_(variables), form_(form), console_(console) {}
  ~FitProgress() override { ClearLine(); }

  bool StopRequested() override { return interrupt_.Requested(); }
  void Report(const Generation& generation) override;

 private:
  using Clock = std::chrono::steady_clock;

  void ShowLine(const Generation& generation);
  void ClearLine();

  std::span<const FitVariable> variables_;
  ProgressForm form_;
  const Console& console_;
  Interrupt interrupt_;
  Clock::time_point start_ = Clock::now();
  Clock::time_point shown_{};
  bool lineStands_ = false;
};

}  // namespace velmora::cli

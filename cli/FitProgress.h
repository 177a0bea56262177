// What is shown of a running search, and its stop by Ctrl-C.
#pragma once

#include <chrono>
#include <span>
#include <string>

#include "cli/Console.h"
#include "cli/Interrupt.h"
#include "estimation/EvolucaoDiferencial.h"

namespace velmora::cli {

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

// Ctrl-C as the command to stop a search.
#pragma once

#include <csignal>

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

}  // namespace velmora::cli

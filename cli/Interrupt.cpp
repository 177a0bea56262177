#include "cli/Interrupt.h"

namespace velmora::cli {
namespace {

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

}  // namespace velmora::cli

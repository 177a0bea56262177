// The drawn icons of the cultivation window.
#pragma once

#include <QIcon>
#include <cstdint>

namespace velmora {

enum class Symbol : std::uint8_t {
  Back,      // to the experiments window
  Previous,  // experiment
  Next,      // experiment
  Unlock,    // a choice that was fixed
  Confirm,   // the model: a green tick
  Save,
  Start,
  Stop,
  Clear,    // the results
  Initial,  // back to the initial values
  Forward,  // forward to the estimated values
  Report,
};

QIcon DrawnIcon(Symbol symbol);

}  // namespace velmora

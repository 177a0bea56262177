// An arithmetic fault in words.
#pragma once

#include <string>

#include "kinetics/ArithmeticFault.h"
#include "language/Texts.h"

namespace velmora {

/// The fault's kind, term, experiment and model point, as far as they apply, on one line, UTF-8:
/// "overflow in the substrate balance (experiment 2, point 37 of 100)". `experiment` is the number
/// of the experiment at the fault's place.
std::string FaultDescription(const ArithmeticFault& fault, int experiment, Language language);

}  // namespace velmora

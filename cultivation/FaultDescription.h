// An arithmetic fault in words, and what it leaves of a curve.
#pragma once

#include <string>

#include "app/Texts.h"
#include "kinetics/ArithmeticFault.h"
#include "kinetics/ModelCurves.h"

namespace velmora {

/// The fault's kind, term, experiment and model point, as far as they apply, on one line, UTF-8:
/// "overflow in the substrate balance (experiment 2, point 37 of 100)". `experiment` is the number
/// (NExp) of the experiment at the fault's place.
std::string FaultDescription(const ArithmeticFault& fault, int experiment, Language language);

/// Ends a curve where its simulation failed: the points from the fault on repeat the last one
/// before it, so that the line stops there.
void EndCurveAt(const ArithmeticFault& fault, ModelCurve& curve);

}  // namespace velmora

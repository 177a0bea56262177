// What models and parameters mean, for tool tips and "What's this?".
#pragma once

#include <QString>

#include "kinetics/Modelos.h"
#include "language/Texts.h"

namespace velmora {

/// The model's equation, and a line for each of its terms: when to choose it.
QString ModelHelp(const Model& model, Language language);

/// The same as rich text, the equation drawn with fractions and indices.
QString DrawnModelHelp(const Model& model, Language language);

/// What the fittable parameter at `position` stands for.
QString ParameterHelp(At position, Language language);

}  // namespace velmora

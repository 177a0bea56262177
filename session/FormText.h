// The cultivation window's form as text, for the recovery file.
#pragma once

#include <string>
#include <string_view>

#include "session/Session.h"

namespace velmora {

/// A line for each box, each fit row's tick and bounds, and each choice, in a fixed order.
std::string FormText(const FormDraft& draft);

/// The draft of such a text; what the text does not hold is as in an empty form.
FormDraft FormOfText(std::string_view text);

}  // namespace velmora

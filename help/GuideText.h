// The guide's text with its placeholders filled.
#pragma once

#include <string>

#include "language/Texts.h"

namespace velmora {

/// Replaces in a guide's HTML:
///   {text:N}   by the program's text N, escaped;
///   {models}   by the rows of the table of growth models.
/// Throws std::runtime_error for a placeholder that is none or a text that does not exist.
std::string FilledGuide(const std::string& html, Language language);

/// `text` with "&", "<" and ">" escaped for HTML.
std::string Escaped(std::string_view text);

}  // namespace velmora

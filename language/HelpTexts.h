// What the command line says of its commands and options, in both languages.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "language/Texts.h"

namespace velmora {

struct HelpText {
  const char* english;
  const char* portuguese;

  constexpr const char* In(Language language) const {
    return language == Language::Portuguese ? portuguese : english;
  }
};

extern const HelpText kAboutText;
extern const HelpText kFooterText;
extern const HelpText kInputsFooterText;
extern const HelpText kFitFooterText;
extern const HelpText kCompareFooterText;
extern const HelpText kChartFooterText;
extern const HelpText kCheckFooterText;
extern const HelpText kImportFooterText;
extern const HelpText kConditionsFooterText;
extern const HelpText kConditionsRulesText;
extern const HelpText kBatchFooterText;

/// The Portuguese of a command's or option's description, or of a word of the help's own; the text
/// itself where it has none.
std::string_view HelpInPortuguese(std::string_view english);

/// The Portuguese of what the parser of the command line finds wrong, the same where it is not
/// known.
std::string ParserMessageInPortuguese(std::string_view english);

}  // namespace velmora

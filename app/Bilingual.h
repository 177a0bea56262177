// A text that is not the string table's, in both languages.
#pragma once

#include <string_view>

#include "app/Texts.h"

namespace velmora {

/// The table holds the texts that the windows were designed with; what faults are called, say,
/// stands beside the code that words it.
struct Bilingual {
  std::string_view english;
  std::string_view portuguese;

  constexpr std::string_view In(Language language) const {
    return language == Language::Portuguese ? portuguese : english;
  }
};

}  // namespace velmora

// The two-language string table: every text of the program is looked up here when it is used.
#pragma once

#include <cstdint>
#include <string_view>

namespace velmora {

enum class Language : std::int16_t { English = 0, Portuguese = 1 };

/// The distance between the id of an English text and the id of its Portuguese partner.
inline constexpr std::int16_t kPortugueseOffset = 900;

/// Whether the table holds a text with this English id.
bool HasText(int englishId);

/// The text (UTF-8) with id `englishId` + 900 x language code, blanks and "&" marks included.
/// `englishId` must be one of the table's English ids (100-202, 300-362, 400-446, 500-516).
std::string_view Text(int englishId, Language language);

}  // namespace velmora

// A text of the string table as Qt's windows take it.
#pragma once

#include <QString>

#include "app/Texts.h"

namespace velmora {

/// The text with id `englishId` in `language`, "&" marks included.
inline QString Caption(int englishId, Language language) {
  const std::string_view text = Text(englishId, language);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace velmora

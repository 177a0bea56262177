// The captions of a window, from the table of texts.
#pragma once

#include <QString>

#include "language/Texts.h"

class QWidget;

namespace velmora {

inline QString Utf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The text as Qt's windows take it, "&" marks included.
inline QString Caption(TextId id, Language language) {
  return Utf8(Text(id, language));
}

/// Sets the title, captions and tool tips of `window`, found by its objectName, as the caption
/// table lists them, with accessible names; then sends it a QEvent::LanguageChange, on which a
/// window words the texts that depend on its state.
void Idiomas(QWidget& window, Language language);

}  // namespace velmora

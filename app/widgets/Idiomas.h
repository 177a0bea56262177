// The captions of a window, from the table of texts.
#pragma once

#include <QString>

#include "language/Texts.h"

class QWidget;

namespace velmora {

/// The text as Qt's windows take it, "&" marks included.
inline QString Caption(TextId id, Language language) {
  const std::string_view text = Text(id, language);
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Sets the title, captions and tool tips of `window`, found by its objectName, as the caption
/// table lists them, with accessible names; then sends it a QEvent::LanguageChange, on which a
/// window words the texts that depend on its state.
void Idiomas(QWidget& window, Language language);

}  // namespace velmora

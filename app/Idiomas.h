// The captions of a window, from the string table.
#pragma once

#include "app/Texts.h"

class QWidget;

namespace velmora {

/// Sets the title, captions and tool tips of `window`, found by its objectName, as the caption
/// table lists them, with accessible names; then sends it a QEvent::LanguageChange, on which a
/// window words the texts that depend on its state.
void Idiomas(QWidget& window, Language language);

}  // namespace velmora

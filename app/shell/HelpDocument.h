// The user's guide beside the program.
#pragma once

#include <QString>

#include "language/Texts.h"

namespace velmora {

/// The name of the guide in `language`, a PDF.
QString HelpFileName(Language language);

/// Opens the guide that lies in `folder` with the desktop's viewer, which runs on its own. False,
/// with nothing shown, where the file or the viewer is missing.
bool OpenHelpDocument(const QString& folder, Language language);

}  // namespace velmora

// The user's guide.
#pragma once

#include <QString>

#include "app/widgets/Dialogs.h"
#include "language/Texts.h"

class QWidget;

namespace velmora {

/// The guide's file name in the language, without a suffix.
QString GuideName(Language language);

/// Opens the guide that lies in `folder`: in the desktop's viewer, and where there is none in a
/// window over `owner`. Where the guide is missing, says so.
void OpenGuide(const QString& folder, Language language, Dialogs& dialogs, QWidget* owner);

}  // namespace velmora

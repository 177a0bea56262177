// Pictures of the program's windows, taken from the windows themselves.
#pragma once

#include <QImage>
#include <QMap>
#include <QString>

#include "language/Texts.h"

namespace velmora {

/// The pictures of a guide by name: "start", "experiments", "conditions", "results", "zoom",
/// "settings" and "about", in `language`, with the molasses example of `examplesFolder` loaded and
/// fitted. Throws std::runtime_error where the example cannot be opened.
QMap<QString, QImage> TakePictures(Language language, const QString& examplesFolder);

}  // namespace velmora

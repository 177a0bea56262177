// Pictures of the program's windows, taken from the windows themselves.
#pragma once

#include <QImage>
#include <QMap>
#include <QSize>
#include <QString>

#include "language/Texts.h"

namespace velmora {

inline constexpr QSize kUsualFrame(1280, 800);

/// Pictures of the program's windows by name, "start", "experiments", "results" and so on, in
/// `language`, with the molasses example of `examplesFolder` loaded and fitted and the main window
/// of `frameSize`. Throws std::runtime_error where the example cannot be opened.
QMap<QString, QImage> TakePictures(Language language, const QString& examplesFolder,
                                   const QSize& frameSize = kUsualFrame);

}  // namespace velmora

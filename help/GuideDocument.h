// The guide as a PDF.
#pragma once

#include <QImage>
#include <QMap>
#include <QString>

namespace velmora {

/// Prints `html` on A4 pages with page numbers; an image named "NAME.png" is the picture NAME.
/// False where the file cannot be written.
bool PrintGuide(const QString& html, const QMap<QString, QImage>& pictures, const QString& title,
                const QString& file);

/// Writes the guide as one page of HTML that holds its pictures, for a window of the program's own.
bool WriteGuidePage(const QString& html, const QMap<QString, QImage>& pictures,
                    const QString& title, const QString& file);

}  // namespace velmora

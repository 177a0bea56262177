#include "app/shell/HelpDocument.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace velmora {

QString HelpFileName(Language language) {
  return language == Language::English ? QStringLiteral("HelpFile_Velmora.pdf")
                                       : QStringLiteral("ArquivoDeAjuda_Velmora.pdf");
}

bool OpenHelpDocument(const QString& folder, Language language) {
  const QString path = QDir(folder).filePath(HelpFileName(language));
  if (!QFileInfo(path).isFile()) return false;
  QProcess viewer;
  viewer.setProgram(QStringLiteral("xdg-open"));
  viewer.setArguments({path});
  // A viewer's complaints are not the program's.
  viewer.setStandardOutputFile(QProcess::nullDevice());
  viewer.setStandardErrorFile(QProcess::nullDevice());
  return viewer.startDetached();
}

}  // namespace velmora

#include "app/widgets/ProgramFolder.h"

#include <QCoreApplication>
#include <QDir>

namespace velmora {

QString FilesOfProgramIn(const QString& program) {
  const QDir own(program);
  if (own.exists(QStringLiteral("Imagens_Marcador"))) return own.path();
  return QDir::cleanPath(own.filePath(QStringLiteral(VELMORA_SHARED_FROM_PROGRAM)));
}

QString ProgramFolder() {
  return FilesOfProgramIn(QCoreApplication::applicationDirPath());
}

}  // namespace velmora

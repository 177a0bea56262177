// Where the files lie that come with the program: the legend's pictures and the guide.
#pragma once

#include <QString>

namespace velmora {

/// The folder of the pictures and the guide: that of the running program, as a build leaves them,
/// or the shared one of an installation, which is found from the program, wherever both were moved.
QString ProgramFolder();

/// As `ProgramFolder`, for a program in the folder `program`.
QString FilesOfProgramIn(const QString& program);

}  // namespace velmora

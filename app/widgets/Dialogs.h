// Message and file dialogs. Every window shows its dialogs through this one door.
#pragma once

#include <QString>
#include <string>

#include "data/FileFault.h"
#include "language/Message.h"
#include "session/Session.h"

class QWidget;

namespace velmora {

/// The filters of the program's files, the same in both languages, and the files' suffix.
inline const QString kOpenFilter = QStringLiteral("ABR abr(*.abr)");
inline const QString kSaveFilter = QStringLiteral("Arquivos Textos (*.abr)");
inline const QString kSuffix = QStringLiteral("abr");

/// Of Yes and No the first is the default, but in `NoYes` and `SaveYesNo`, where Yes loses
/// something.
enum class Buttons { Ok, OkCancel, YesNo, NoYes, SaveYesNo };
enum class Answer { Ok, Cancel, Yes, No, Save };

/// Shows dialogs in the session's language. A test hands the windows a derived class that answers
/// beforehand and records what was asked.
class Dialogs {
 public:
  explicit Dialogs(const Session& session) : session_(session) {}
  virtual ~Dialogs() = default;

  /// Shows the message and waits for an answer; closing the box answers Ok, Cancel or No. `detail`
  /// stands below the text.
  virtual Answer Show(QWidget* owner, const Message& message, Buttons buttons = Buttons::Ok,
                      const QString& detail = {});

  /// The chosen file's name, or an empty text where the user cancels. `filter` is written as
  /// "Label (*.abr)".
  virtual QString OpenFile(QWidget* owner, const QString& filter);

  /// As `OpenFile`; `suffix` ("abr") is added where the user types none, and an existing file is
  /// asked about. `offered` is the name that stands there at first.
  virtual QString SaveFile(QWidget* owner, const QString& filter, const QString& suffix,
                           const QString& offered = {});

  /// Tells that a file could not be read or written, and why.
  void TellFault(QWidget* owner, const FileFault& fault);

 protected:
  const Session& session_;
};

/// A file's name as windows show it.
QString ShownPath(const std::string& path);
/// A chosen file's name in the bytes of the file system.
std::string LocalPath(const QString& file);

}  // namespace velmora

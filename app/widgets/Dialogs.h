// Message and file dialogs. Every window shows its dialogs through this one door.
#pragma once

#include <QString>

#include "language/Message.h"
#include "session/Session.h"

class QWidget;

namespace velmora {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

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
  /// asked about.
  virtual QString SaveFile(QWidget* owner, const QString& filter, const QString& suffix);

 protected:
  const Session& session_;
};

}  // namespace velmora

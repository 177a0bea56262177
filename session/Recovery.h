// The file from which work is taken up again after the program, or the machine, has broken down.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/FileFault.h"
#include "platform/System.h"
#include "session/Operations.h"
#include "session/Session.h"

namespace velmora {

/// The experiments, the conditions, what is being entered, and the names of their files, as text.
std::string RecoveryText(const Session& session);

/// Makes the state the one of the text, with neither curves nor results. Nothing, with the state
/// untouched, where the text is not whole.
std::optional<Change> Recover(Session& session, std::string_view text);

/// The folder of the user's state: $XDG_STATE_HOME/velmora, else ~/.local/state/velmora; empty
/// where the user has no home.
std::string StateFolder();

/// One recovery file, held by one running program: a lock that ends with the process tells the
/// files of programs that run from those that were left behind.
class RecoveryFile {
 public:
  /// Takes hold of a file that was left behind in `folder`, or of a new name. Where the folder
  /// cannot be made, every operation does nothing.
  explicit RecoveryFile(const std::string& folder);
  /// Lets go of the file, which stays.
  ~RecoveryFile();
  RecoveryFile(const RecoveryFile&) = delete;
  RecoveryFile& operator=(const RecoveryFile&) = delete;

  /// What was left behind, if anything was.
  std::optional<std::string> Left() const;
  /// Replaces the file whole or not at all.
  std::optional<FileFault> Write(std::string_view text);
  /// Removes the file.
  void Remove();
  /// Renames the file, so that it is left behind no more, and gives its new name; one such file is
  /// kept.
  std::string SetAside();

 private:
  bool Hold(const std::string& path);

  std::string path_;  // empty where none is held
  OpenFile lock_;
};

}  // namespace velmora

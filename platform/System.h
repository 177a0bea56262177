// All that the programs ask of the operating system beyond the C++ library: files that are held
// open, locked, and replaced whole, terminals, and signals. Another system needs System.cpp anew
// and nothing else; here it is POSIX.
//
// Where the system refuses, a routine returns false, nothing or a closed file, with the system's
// reason in errno.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// What the system tells of a file.
struct FileState {
  bool regular = false;  // no folder, device or pipe
  std::uint64_t size = 0;
  std::uint64_t names = 0;     // in folders: hard links; 0 where the last one was removed
  std::uint64_t identity = 0;  // the same for all names of one file in a folder
  std::uint32_t permissions = 0;
  std::uint32_t owner = 0, group = 0;
};

/// Of the file behind any symbolic links.
std::optional<FileState> StateOf(const std::string& path);
/// Whether this user may write to the file, whatever its folder allows.
bool MayWrite(const std::string& path);
/// Whether this user may give a file of their own the owner and the group of another.
bool MayGiveOwnerOf(const FileState& file);
/// Whether the file grants more than owner, group and mode say (acl(5)).
bool HasAccessList(const std::string& path);

/// An open file, closed at the end.
class OpenFile {
 public:
  OpenFile() = default;
  explicit OpenFile(int number) : number_(number) {}
  ~OpenFile();
  OpenFile(OpenFile&& other) noexcept;
  OpenFile& operator=(OpenFile&& other) noexcept;

  /// Does not wait for whoever writes to a pipe.
  static OpenFile ToRead(const std::string& path);
  /// Makes it where it is not there; what is written goes to its end.
  static OpenFile ToContinue(const std::string& path);
  /// Makes it for this user alone where it is not there.
  static OpenFile ToLock(const std::string& path);
  static OpenFile StandardInput();

  bool IsOpen() const { return number_ >= 0; }
  std::optional<FileState> State() const;
  /// How many bytes were read, 0 at the end; nothing where the system refuses.
  std::optional<std::size_t> Read(char* into, std::size_t most) const;
  /// Writes all of it.
  bool Write(std::string_view bytes) const;
  /// Puts what was written on the disk.
  bool Flush() const;
  bool Cut(std::size_t size) const;
  /// A lock ends with the file's closing, at the latest with the program. `Lock` waits for whoever
  /// holds it; neither does anything on file systems without locks.
  void Lock() const;
  bool TryLock() const;
  /// Takes the permissions of another file, and its owner and group where this user may give them.
  bool TakeAfter(const FileState& other) const;

 private:
  friend class OpenFolder;
  int number_ = -1;
};

/// A folder whose entries stay the same ones if it is renamed meanwhile.
class OpenFolder {
 public:
  explicit OpenFolder(const std::string& path);

  bool IsOpen() const { return file_.IsOpen(); }
  std::vector<std::string> Names() const;
  /// A new file to be written; closed, with EEXIST in errno, where the name is taken.
  OpenFile Create(const std::string& name, bool forOwnerAlone) const;
  /// A regular file of this user; closed where it is none, or a symbolic link.
  OpenFile OpenOwn(const std::string& name) const;
  bool Rename(const std::string& from, const std::string& to) const;
  void Remove(const std::string& name) const;
  /// Puts the names on the disk. Some file systems cannot.
  void Flush() const;

 private:
  OpenFile file_;
};

void RemoveFile(const std::string& path);

enum class Stream : std::uint8_t { Output, Errors };
/// Whether a person reads it, not a program or a file.
bool IsTerminal(Stream stream);

/// Writing to a pipe that nobody reads becomes an error, not the program's end without a word.
void LetClosedPipesFail();

/// While one of these lives the first request to end the program (Ctrl-C, SIGTERM, SIGHUP) is only
/// noted; a second one ends the program at once. What the program was started to ignore, as under
/// nohup, stays ignored. At most one lives at a time.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

  /// The number of the signal that was noted; 0 where none was.
  int Noted() const;
};

}  // namespace velmora

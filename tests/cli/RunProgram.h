// velmora-cli as a user runs it: its output, its errors, its exit code.
#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/data/FileTesting.h"

namespace velmora {

struct Ran {
  int code = -1;   // -1 where a signal ended it
  int signal = 0;  // that signal
  std::string out;
  std::string err;
};

/// What a program is started into: signals that it is to ignore, and a file descriptor to write to
/// in place of a file of its own.
struct Surroundings {
  int ignored = 0;
  int out = -1;
  std::string in = "/dev/null";  // the file that it reads
};

/// The program VELMORA_CLI, started; its output is kept in files of its own.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments, Surroundings in = {}) {
    arguments.insert(arguments.begin(), VELMORA_CLI);
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&files, 0, in.in.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, 1, (folder_ / "out").c_str(), flags, 0600);
    posix_spawn_file_actions_addopen(&files, 2, (folder_ / "err").c_str(), flags, 0600);
    if (in.out >= 0) posix_spawn_file_actions_adddup2(&files, in.out, 1);
    // The tests themselves may run with signals ignored.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t usual;
    sigemptyset(&usual);
    for (const int each : {SIGINT, SIGTERM, SIGHUP})
      if (each != in.ignored) sigaddset(&usual, each);
    posix_spawnattr_setsigdefault(&attributes, &usual);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    const auto before = in.ignored == 0 ? SIG_DFL : std::signal(in.ignored, SIG_IGN);
    const int failed = posix_spawn(&pid_, VELMORA_CLI, &files, &attributes, argv.data(), environ);
    if (in.ignored != 0) std::signal(in.ignored, before);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    if (failed != 0) throw std::runtime_error("cannot start " VELMORA_CLI);
  }

  /// Whether the program handles the signal itself.
  bool Hears(int signal) const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    for (std::string line; std::getline(status, line);)
      if (line.starts_with("SigCgt:"))
        return (std::stoull(line.substr(7), nullptr, 16) >> (signal - 1) & 1) != 0;
    return false;
  }

  void Send(int signal) const { kill(pid_, signal); }

  Ran Wait() {
    int status = 0;
    waitpid(pid_, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            WIFSIGNALED(status) ? WTERMSIG(status) : 0, BytesOf(folder_ / "out"),
            BytesOf(folder_ / "err")};
  }

 private:
  TemporaryFolder folder_;
  pid_t pid_ = 0;
};

/// A pipe that is full: who writes to it waits until it is read.
class FullPipe {
 public:
  FullPipe() {
    if (pipe2(ends_, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    fcntl(ends_[1], F_SETFL, O_NONBLOCK);
    const std::string block(4096, ' ');
    for (ssize_t written = 0; written >= 0; written = write(ends_[1], block.data(), block.size()))
      filled_ += static_cast<std::size_t>(written);
    fcntl(ends_[1], F_SETFL, 0);
  }
  ~FullPipe() { close(ends_[0]); }

  int WriteEnd() const { return ends_[1]; }
  /// What others wrote, until all of them are done.
  std::string Read() {
    close(ends_[1]);
    std::string text;
    char block[4096];
    for (ssize_t got = 1; got > 0; text.append(block, static_cast<std::size_t>(got)))
      got = std::max<ssize_t>(0, read(ends_[0], block, sizeof block));
    return text.substr(filled_);
  }

 private:
  int ends_[2] = {};
  std::size_t filled_ = 0;
};

/// Runs the program with arguments that are separated by blanks.
inline Ran RunCli(const std::string& arguments) {
  std::istringstream words(arguments);
  std::vector<std::string> list;
  for (std::string word; words >> word;) list.push_back(word);
  return Program(list).Wait();
}

inline void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace velmora

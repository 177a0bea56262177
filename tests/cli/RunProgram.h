// velmora-cli as a user runs it: its output, its errors, its exit code.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/data/FileTesting.h"

namespace velmora {

struct Ran {
  int code = -1;  // -1 where a signal ended it
  std::string out;
  std::string err;
};

/// The program VELMORA_CLI, started; its output is kept in files of its own.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), VELMORA_CLI);
    std::vector<char*> argv;
    for (std::string& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&files, 1, (folder_ / "out").c_str(), flags, 0600);
    posix_spawn_file_actions_addopen(&files, 2, (folder_ / "err").c_str(), flags, 0600);
    if (posix_spawn(&pid_, VELMORA_CLI, &files, nullptr, argv.data(), environ) != 0)
      throw std::runtime_error("cannot start " VELMORA_CLI);
    posix_spawn_file_actions_destroy(&files);
  }

  /// Whether the program handles SIGINT itself by now.
  bool HearsInterrupt() const {
    std::ifstream status("/proc/" + std::to_string(pid_) + "/status");
    for (std::string line; std::getline(status, line);)
      if (line.starts_with("SigCgt:"))
        return (std::stoull(line.substr(7), nullptr, 16) >> (SIGINT - 1) & 1) != 0;
    return false;
  }

  void Interrupt() const { kill(pid_, SIGINT); }

  Ran Wait() {
    int status = 0;
    waitpid(pid_, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, BytesOf(folder_ / "out"),
            BytesOf(folder_ / "err")};
  }

 private:
  TemporaryFolder folder_;
  pid_t pid_ = 0;
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

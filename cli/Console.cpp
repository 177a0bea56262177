#include "cli/Console.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace velmora::cli {
namespace {

std::string Blanks(std::string_view text, std::size_t width) {
  const std::size_t letters = LettersIn(text);
  return std::string(width > letters ? width - letters : 0, ' ');
}

}  // namespace

std::string Wording::Of(const FileFault& fault) const {
  return PlaceInFile(fault.path, fault.line) + OnOneLine(FaultReason(fault, language_));
}

void Console::Print(std::string_view text) const {
  errno = 0;
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0)
    throw Failure{ExitCode::File, say(TextId::OutputFailed, {std::strerror(errno)})};
}

void Console::Complain(std::string_view line) const {
  Note("velmora-cli: " + OnOneLine(line) + "\n");
}

void Console::Note(std::string_view text) const {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

void RequireDone(const std::optional<FileFault>& fault, const Wording& say) {
  if (fault) throw Failure{ExitCode::File, say.Of(*fault)};
}

std::string PlaceInFile(const std::string& path, int line) {
  std::string place = path + ":";
  if (line > 0) place.append(std::to_string(line)).append(":");
  return place + " ";
}

std::size_t LettersIn(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) >> 6) != 2; }));
}

std::string Left(std::string_view text, std::size_t width) {
  return std::string(text) + Blanks(text, width);
}

std::string Right(std::string_view text, std::size_t width) {
  return Blanks(text, width) + std::string(text);
}

void Join(std::string& list, std::string_view item, std::string_view separator) {
  if (!list.empty()) list += separator;
  list += item;
}

}  // namespace velmora::cli

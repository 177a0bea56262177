#include "cli/Console.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "data/FileBytes.h"
#include "data/SafeSave.h"
#include "platform/System.h"

namespace velmora::cli {
namespace {

std::string Blanks(std::string_view text, std::size_t width) {
  const std::size_t letters = LettersIn(text);
  return std::string(width > letters ? width - letters : 0, ' ');
}

struct Letter {
  char32_t code;
  std::size_t length;  // in bytes
};

/// The first letter of UTF-8 that is not empty; a byte that begins none stands for itself.
Letter FirstLetter(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  std::size_t length = byte(0) < 0xC0 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
  if (length > text.size()) length = 1;
  char32_t code = length == 1 ? byte(0) : byte(0) & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) code = code << 6 | (byte(i) & 0x3Fu);
  return {code, length};
}

bool IsObeyed(char32_t letter) {
  if (letter == U'\t' || letter == U'\n') return false;
  const auto among = [letter](char32_t first, char32_t last) {
    return letter >= first && letter <= last;
  };
  return among(0, 0x1F) || among(0x7F, 0x9F) || letter == 0x61C || among(0x200E, 0x200F) ||
         among(0x202A, 0x202E) || among(0x2066, 0x2069);
}

std::string Escaped(char32_t letter) {
  std::array<char, 16> text{};
  const char* const form = letter < 0x100 ? "\\x%02X" : "\\u%04X";
  std::snprintf(text.data(), text.size(), form, static_cast<unsigned>(letter));
  return text.data();
}

}  // namespace

std::string Wording::Of(const FileFault& fault) const {
  return PlaceInFile(fault.path, fault.line) + OnOneLine(FaultReason(fault, language_));
}

bool Output::Write(std::string_view text) {
  if (keeps_) {
    kept_ += text;
    return true;
  }
  errno = 0;
  return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() &&
         std::fflush(stdout) == 0;
}

std::optional<FileFault> Output::Save() const {
  return IsFile() ? SafeSave(path_, kept_) : std::nullopt;
}

void Console::Print(std::string_view text) const {
  const bool shown = !output_.Keeps() && IsTerminal(Stream::Output);
  const std::string visible = shown ? Visible(text) : std::string();
  if (!output_.Write(shown ? visible : text))
    throw Failure{ExitCode::File, say(TextId::OutputFailed, {std::strerror(errno)})};
}

void Console::PrintOrRescue(std::string_view text) const {
  try {
    Print(text);
  } catch (const Failure&) {
    Note(Visible(text));
    throw;
  }
}

void Console::Tell(std::string_view text, const std::string& path) const {
  if (!options_.quiet) PrintBeside(text, path);
}

void Console::PrintBeside(std::string_view text, const std::string& path) const {
  if (path == kStandard)
    Note(Visible(text));
  else
    Print(text);
}

void Console::Warn(std::string_view line) const {
  if (!options_.quiet) Complain(line);
}

std::string Console::Read(const std::string& path) const {
  FileBytes file = path == kStandard ? ReadStandardInput(path, options_.limit)
                                     : ReadWholeFile(path, options_.limit);
  RequireDone(file.fault, say);
  return std::move(file.bytes);
}

void RequireOtherFile(const std::string& input, const std::string& output, const Wording& say) {
  std::error_code absent;
  if (std::filesystem::equivalent(input, output, absent))
    throw Failure{ExitCode::Usage, say(TextId::SameFile, {output})};
}

void Console::TryOutput(const std::string& path, const std::vector<std::string>& inputs) const {
  if (path == kStandard) return;
  for (const std::string& input : inputs) RequireOtherFile(input, path, say);
  RequireDone(TrySave(path), say);
  const SaveChanges changes = ChangesOfSaving(path);
  if (changes.otherNames) Warn(PlaceInFile(path, 0) + say(TextId::OtherNamesKeepOld));
  if (changes.owner) Warn(PlaceInFile(path, 0) + say(TextId::OwnerBecomesUser));
  if (changes.accessList) Warn(PlaceInFile(path, 0) + say(TextId::AccessListLost));
}

void Console::Complain(std::string_view line) const {
  Note("velmora-cli: " + Visible(OnOneLine(line)) + "\n");
}

void Console::Note(std::string_view text) const {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

void RequireDone(const std::optional<FileFault>& fault, const Wording& say) {
  if (fault)
    throw Failure{
        ExitCode::File, OnOneLine(FaultReason(*fault, say.In())), {fault->path, fault->line}};
}

std::string Worded(const Failure& failure) {
  const std::string place =
      failure.place.file.empty() ? "" : PlaceInFile(failure.place.file, failure.place.line);
  return place + failure.line;
}

std::string PlaceInFile(const std::string& path, int line) {
  std::string place = path + ":";
  if (line > 0) place.append(std::to_string(line)).append(":");
  return place + " ";
}

std::string Visible(std::string_view text) {
  std::string visible;
  while (!text.empty()) {
    const auto [letter, length] = FirstLetter(text);
    if (IsObeyed(letter))
      visible += Escaped(letter);
    else
      visible += text.substr(0, length);
    text.remove_prefix(length);
  }
  return visible;
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

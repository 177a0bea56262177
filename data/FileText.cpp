#include "data/FileText.h"

#include <algorithm>
#include <cmath>

#include "data/SafeSave.h"
#include "data/Windows1252.h"
#include "language/Numbers.h"

namespace velmora {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnd = "\r\n";
constexpr int kMostQuoted = 40;  // letters

/// Where the first byte of a UTF-8 text stands that is no letter, or its end.
std::size_t BadByteAt(std::string_view utf8) {
  std::string_view rest = utf8;
  while (const std::size_t length = LetterLength(rest)) rest.remove_prefix(length);
  return utf8.size() - rest.size();
}

}  // namespace

FileText DecodeFile(std::string_view bytes) {
  if (!bytes.starts_with(kByteOrderMark)) return {FromWindows1252(bytes), ""};
  bytes.remove_prefix(kByteOrderMark.size());
  const std::size_t bad = BadByteAt(bytes);
  if (bad == bytes.size()) return {std::string(bytes), ""};
  return {std::string(bytes.substr(0, bytes.find_last_of(kLineEnd, bad) + 1)),
          ByteInHex(bytes[bad])};
}

void AppendLine(std::string& text, std::string_view line) {
  text += line;
  text += kLineEnd;
}

void AppendMarked(std::string& text, char mark, int number) {
  text += mark;
  AppendLine(text, ShortestText(number));
}

std::optional<FileFault> RefuseText(std::string_view text, FileField field, int item,
                                    const std::string& path) {
  if (text.find_first_of(kLineEnd) != std::string_view::npos)
    return FileFault{FileReason::LineBreakInText, path, 0, field, item, Quoted(text)};
  if (const auto letter = ToWindows1252(text).letter)
    return FileFault{FileReason::BadLetter, path, 0, field, item, *letter};
  return std::nullopt;
}

std::optional<FileFault> SaveText(std::string_view text, const std::string& path) {
  const Encoded encoded = ToWindows1252(text);
  if (encoded.letter)
    return FileFault{FileReason::BadLetter, path, 0, FileField::None, 0, *encoded.letter};
  return SafeSave(path, encoded.bytes);
}

std::string Quoted(std::string_view text) {
  std::size_t end = 0;
  for (int letters = 0; letters < kMostQuoted; ++letters) end += LetterLength(text.substr(end));
  return std::string(text.substr(0, end));
}

FieldReader::FieldReader(const FileText& file, const std::string& path)
    : rest_(file.text), badByte_(file.badByte) {
  place_.path = path;
}

std::string_view FieldReader::Text(FileField field, int item) {
  if (!Good()) return {};
  place_.line = nextLine_;
  place_.field = field;
  place_.item = item;
  if (rest_.empty()) {
    Fail(badByte_.empty() ? FileReason::EndOfFile : FileReason::BadByte, badByte_);
    return {};
  }
  rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
  const std::string_view text = rest_.substr(0, rest_.find_first_of(",\r\n"));
  rest_.remove_prefix(text.size());
  PassFieldEnd();
  return text;
}

void FieldReader::PassFieldEnd() {
  if (rest_.empty()) return;
  if (rest_.front() != ',') ++nextLine_;
  rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
}

double FieldReader::Number(FileField field, int item) {
  return NumberIn(Text(field, item));
}

double FieldReader::NumberIn(std::string_view part) {
  const std::optional<double> number = ReadBox(part, '.');
  if (!number) FailNumber(part);
  return number.value_or(0);
}

void FieldReader::FailNumber(std::string_view part) {
  Fail(IsOutOfRange(part, '.') ? FileReason::OutOfRange : FileReason::NotANumber, part);
}

double FieldReader::WholeIn(std::string_view part, Limits limits) {
  const std::optional<double> number = ParseNumber(part, '.');
  if (!number) {
    FailNumber(part);
  } else if (*number != std::trunc(*number)) {
    Fail(FileReason::NotAWholeNumber, part);
  } else if (*number < limits.least || *number > limits.most) {
    Fail(FileReason::OutOfRange, part);
  }
  return Good() ? *number : 0;
}

FileFault FieldReader::FaultHere(FileReason reason, std::string_view found) const {
  FileFault fault = place_;
  fault.reason = reason;
  fault.detail = Quoted(found);
  return fault;
}

void FieldReader::Fail(FileReason reason, std::string_view found) {
  if (Good()) fault_ = FaultHere(reason, found);
}

std::string_view FieldReader::RightOf(char mark, std::string_view text) {
  const std::size_t at = text.find(mark);
  return at == std::string_view::npos ? text : text.substr(at + 1);
}

}  // namespace velmora

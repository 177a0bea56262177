#include "data/FieldReader.h"

#include <algorithm>
#include <cmath>

#include "language/Numbers.h"

namespace velmora {

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

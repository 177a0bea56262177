#include "cli/Json.h"

#include "cli/Columns.h"
#include "language/Numbers.h"

namespace velmora::cli::json {
namespace {

std::string Escaped(char c) {
  constexpr std::string_view kHex = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(c);
  if (c == '"' || c == '\\') return {'\\', c};
  if (code < 0x20) return {'\\', 'u', '0', '0', kHex[code >> 4], kHex[code & 15]};
  return {c};
}

std::string Wrapped(char open, std::string_view members, char close) {
  std::string text(1, open);
  text += members;
  return text += close;
}

}  // namespace

std::string Number(double value) {
  return ShortestText(value);
}

std::string Text(std::string_view utf8) {
  std::string text = "\"";
  for (const char c : utf8) text += Escaped(c);
  return text + '"';
}

std::string Array(const std::vector<std::string>& members) {
  std::string text;
  for (const std::string& member : members) Join(text, member, ",");
  return Wrapped('[', text, ']');
}

std::string Object(std::initializer_list<std::pair<std::string_view, std::string>> members) {
  std::string text;
  for (const auto& [name, value] : members) Join(text, Text(name) + ":" + value, ",");
  return Wrapped('{', text, '}');
}

std::string Numbers(std::span<const double> values) {
  std::vector<std::string> members;
  for (const double value : values) members.push_back(Number(value));
  return Array(members);
}

}  // namespace velmora::cli::json

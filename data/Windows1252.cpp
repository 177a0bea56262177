#include "data/Windows1252.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace {

constexpr unsigned kFirstOwn = 0x80;

/// The letters of the bytes 80..9F; all other bytes stand for the letter of their own number. So do
/// the five that the encoding leaves without a letter: as control characters they come back as the
/// bytes that they were.
constexpr std::array<char16_t, 32> kOwnLetters = {
    u'€', 0x81, u'‚', u'ƒ', u'„', u'…', u'†', u'‡', u'ˆ', u'‰', u'Š', u'‹', u'Œ', 0x8D, u'Ž', 0x8F,
    0x90, u'‘', u'’', u'“', u'”', u'•', u'–', u'—', u'˜', u'™', u'š', u'›', u'œ', 0x9D, u'ž', u'Ÿ'};

bool IsOwn(char32_t number) {
  return number >= kFirstOwn && number < kFirstOwn + kOwnLetters.size();
}

struct Letter {
  char32_t number = 0;
  std::size_t length = 0;  // bytes in UTF-8; 0: no valid letter
};

/// Bytes that a letter takes by its first byte; 0 for a byte that begins none.
std::size_t PromisedLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xC0) return 0;
  if (lead < 0xE0) return 2;
  if (lead < 0xF0) return 3;
  return lead < 0xF8 ? 4 : 0;
}

/// Refuses what is cut short, longer than needed, half of a surrogate pair or beyond U+10FFFF.
Letter FirstLetter(std::string_view utf8) {
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  constexpr std::array<unsigned char, 5> kLeadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
  if (utf8.empty()) return {};
  const auto lead = static_cast<unsigned char>(utf8.front());
  const std::size_t length = PromisedLength(lead);
  if (length == 0 || length > utf8.size()) return {};
  auto number = static_cast<char32_t>(lead & kLeadBits[length]);
  for (const char byte : utf8.substr(1, length - 1)) {
    const auto next = static_cast<unsigned char>(byte);
    if ((next & 0xC0) != 0x80) return {};
    number = (number << 6) | (next & 0x3Fu);
  }
  const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
  if (number < kLeast[length] || surrogate || number > 0x10FFFF) return {};
  return {number, length};
}

std::optional<char> ByteOf(char32_t letter) {
  if (letter <= 0xFF && !IsOwn(letter)) return static_cast<char>(letter);
  const auto at = std::find(kOwnLetters.begin(), kOwnLetters.end(), letter);
  if (at == kOwnLetters.end()) return std::nullopt;
  return static_cast<char>(kFirstOwn + static_cast<unsigned>(at - kOwnLetters.begin()));
}

}  // namespace

Encoded ToWindows1252(std::string_view utf8) {
  Encoded encoded;
  while (!utf8.empty()) {
    const Letter letter = FirstLetter(utf8);
    if (letter.length == 0) return {"", ByteInHex(utf8.front())};
    const std::optional<char> byte = ByteOf(letter.number);
    if (!byte) return {"", std::string(utf8.substr(0, letter.length))};
    encoded.bytes += *byte;
    utf8.remove_prefix(letter.length);
  }
  return encoded;
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto number = static_cast<unsigned char>(byte);
    AppendUtf8(IsOwn(number) ? kOwnLetters[number - kFirstOwn] : char16_t{number}, text);
  }
  return text;
}

void AppendUtf8(char32_t letter, std::string& text) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (letter < 0x80) return append(letter);
  if (letter < 0x800) {
    append(0xC0u | (letter >> 6));
  } else {
    if (letter < 0x10000) {
      append(0xE0u | (letter >> 12));
    } else {
      append(0xF0u | (letter >> 18));
      append(0x80u | ((letter >> 12) & 0x3Fu));
    }
    append(0x80u | ((letter >> 6) & 0x3Fu));
  }
  append(0x80u | (letter & 0x3Fu));
}

std::size_t LetterLength(std::string_view utf8) {
  return FirstLetter(utf8).length;
}

std::string ByteInHex(char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto number = static_cast<unsigned char>(byte);
  return {'0', 'x', kDigits[number >> 4], kDigits[number & 0x0Fu]};
}

}  // namespace velmora

// What the user is to be told or asked, as a value; a window or the command line words it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "app/Texts.h"

namespace velmora {

/// One piece of a message: the id of a text, or text that is the same in both languages.
class Piece {
 public:
  Piece(int englishId) : content_(englishId) {}          // NOLINT(google-explicit-constructor)
  Piece(const char* fixedText) : content_(fixedText) {}  // NOLINT(google-explicit-constructor)
  Piece(std::string fixedText) : content_(std::move(fixedText)) {}  // NOLINT

  /// The piece in `language`, UTF-8.
  std::string In(Language language) const;

  friend bool operator==(const Piece&, const Piece&) = default;

 private:
  std::variant<int, std::string> content_;
};

enum class Icon { None, Information, Question, Exclamation, Critical };

/// A message box's contents. The pieces are joined directly: a line break or a blank between two
/// texts is a piece of its own.
struct Message {
  std::vector<Piece> pieces;
  Piece title;
  Icon icon = Icon::Information;

  friend bool operator==(const Message&, const Message&) = default;
};

/// The message's text in `language`, UTF-8, lines separated by '\n'.
std::string Worded(const Message& message, Language language);

}  // namespace velmora

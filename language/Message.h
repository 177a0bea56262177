// What the user is to be told or asked, as a value; a window or the command line words it.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "kinetics/ArithmeticFault.h"
#include "language/Texts.h"

namespace velmora {

/// One piece of a message: a text, a text with what fills its {1}, {2}, ..., or words that are the
/// same in both languages.
class Piece {
 public:
  Piece(TextId text) : content_(text) {}                 // NOLINT(google-explicit-constructor)
  Piece(const char* fixedText) : content_(fixedText) {}  // NOLINT(google-explicit-constructor)
  Piece(std::string fixedText) : content_(std::move(fixedText)) {}  // NOLINT
  Piece(TextId pattern, std::vector<std::string> arguments)
      : content_(Pattern{pattern, std::move(arguments)}) {}

  /// The piece in `language`, UTF-8.
  std::string In(Language language) const;

  friend bool operator==(const Piece&, const Piece&) = default;

 private:
  struct Pattern {
    TextId text;
    std::vector<std::string> arguments;
    friend bool operator==(const Pattern&, const Pattern&) = default;
  };
  std::variant<TextId, std::string, Pattern> content_;
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

/// What most refusals are: under the title "Attention".
inline Message Attention(std::vector<Piece> pieces, Icon icon = Icon::Information) {
  return {std::move(pieces), TextId::Attention, icon};
}

/// The message's text in `language`, UTF-8, lines separated by '\n'.
std::string Worded(const Message& message, Language language);

/// The fault's kind, term, experiment and model point, as far as they apply, on one line, UTF-8:
/// "overflow in the substrate balance (experiment 2, point 37 of 100)". `experiment` is the number
/// of the experiment at the fault's place.
std::string FaultDescription(const ArithmeticFault& fault, int experiment, Language language);

}  // namespace velmora

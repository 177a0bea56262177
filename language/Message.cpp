#include "language/Message.h"

namespace velmora {

std::string Piece::In(Language language) const {
  if (const TextId* text = std::get_if<TextId>(&content_))
    return std::string(Text(*text, language));
  if (const Pattern* pattern = std::get_if<Pattern>(&content_))
    return Filled(
        pattern->text, language,
        std::vector<std::string_view>(pattern->arguments.begin(), pattern->arguments.end()));
  return std::get<std::string>(content_);
}

std::string Worded(const Message& message, Language language) {
  std::string text;
  for (const Piece& piece : message.pieces) text += piece.In(language);
  return text;
}

}  // namespace velmora

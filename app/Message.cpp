#include "app/Message.h"

namespace velmora {

std::string Piece::In(Language language) const {
  if (const int* id = std::get_if<int>(&content_)) return std::string(Text(*id, language));
  return std::get<std::string>(content_);
}

std::string Worded(const Message& message, Language language) {
  std::string text;
  for (const Piece& piece : message.pieces) text += piece.In(language);
  return text;
}

}  // namespace velmora

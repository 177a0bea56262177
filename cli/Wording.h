// What the command line says, in one language.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "data/FileFault.h"
#include "language/Message.h"
#include "language/Texts.h"

namespace velmora::cli {

/// Words what is to be said in one language, UTF-8.
class Wording {
 public:
  explicit Wording(Language language) : language_(language) {}
  Language In() const { return language_; }

  /// The text with {1}, {2}, ... replaced by the arguments.
  std::string operator()(TextId text,
                         std::initializer_list<std::string_view> arguments = {}) const {
    return Filled(text, language_, arguments);
  }

  /// A rule's text on one line.
  std::string Of(const Message& message) const { return OnOneLine(Worded(message, language_)); }
  /// "FILE:LINE: what is wrong and what to do".
  std::string Of(const FileFault& fault) const;

 private:
  Language language_;
};

/// "PATH:LINE: ", or "PATH: " where `line` is 0.
std::string PlaceInFile(const std::string& path, int line);

}  // namespace velmora::cli

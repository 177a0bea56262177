// What may stand in an experiment's description: only what its file can give back.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// A description as it may enter, UTF-8.
struct DescriptionText {
  std::string text;
  bool lettersLeftOut = false;
};

/// Makes a pasted text fit: a comma, which would end the field, becomes a semicolon, a line break
/// or TAB a blank; other ASCII control characters and letters outside Windows-1252 are left out;
/// leading blanks are dropped.
DescriptionText FittingDescription(std::string_view pasted);

/// Whether a typed text may enter as it stands, `first` where nothing stands before it.
bool MayBeTyped(std::string_view text, bool first);

}  // namespace velmora

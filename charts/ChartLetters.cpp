#include "charts/ChartLetters.h"

#include <algorithm>

#include "data/Windows1252.h"

namespace velmora {
namespace {

/// `text`, or as much of its beginning as has room, and "…".
std::string Shortened(const std::string& text, double room, const ChartCanvas& canvas) {
  if (canvas.WidthOf(text) <= room) return text;
  std::string shown;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t letter = std::max<std::size_t>(1, LetterLength(rest));
    const std::string longer = shown + std::string(rest.substr(0, letter));
    if (canvas.WidthOf(longer + "…") > room) break;
    shown = longer;
    rest.remove_prefix(letter);
  }
  return shown + "…";
}

/// How much of `text` the first line takes: whole words, or the one word that is longer than it.
std::size_t FirstLine(const std::string& text, double room, const ChartCanvas& canvas) {
  std::size_t end = text.find(' ');
  for (std::size_t next = end; next != std::string::npos; end = next) {
    next = text.find(' ', next + 1);
    if (canvas.WidthOf(text.substr(0, next)) > room) break;
  }
  return std::min(end, text.size());
}

}  // namespace

std::vector<std::string> Wrapped(const std::string& text, double room, std::size_t most,
                                 const ChartCanvas& canvas) {
  std::vector<std::string> lines;
  std::string rest = text;
  while (!rest.empty() && lines.size() + 1 < most && canvas.WidthOf(rest) > room) {
    const std::size_t end = FirstLine(rest, room, canvas);
    lines.push_back(Shortened(rest.substr(0, end), room, canvas));
    rest.erase(0, std::min(end + 1, rest.size()));
  }
  if (!rest.empty()) lines.push_back(Shortened(rest, room, canvas));
  return lines;
}

double LetterHeight(const PaperArea& paper, const ChartStyle& style) {
  if (style.fontHeight > 0) return style.fontHeight * style.unit;
  const double suited = std::min(paper.height * 0.055, paper.width * 0.036);
  return std::clamp(suited, 9 * style.unit, 17 * style.unit);
}

}  // namespace velmora

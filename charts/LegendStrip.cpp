#include "charts/LegendStrip.h"

#include <algorithm>
#include <string>

#include "charts/MarkerFigures.h"

namespace velmora {
namespace {

// Units.
constexpr double kLetters = 13;
constexpr double kMarkerWidth = 10;
constexpr double kToWord = 5;   // from a marker to its words
constexpr double kToNext = 17;  // from those to the next marker

/// "Exp." is short for the word in both languages.
std::string WordsOf(const LegendRow& row) {
  return "Exp. " + std::to_string(row.number);
}

double WholeWidth(const ChartCanvas& canvas, const std::vector<LegendRow>& rows, double unit) {
  double whole = -kToNext * unit;
  for (const LegendRow& row : rows)
    whole += (kMarkerWidth + kToWord + kToNext) * unit + canvas.WidthOf(WordsOf(row));
  return whole;
}

}  // namespace

void DrawLegendStrip(ChartCanvas& canvas, const PaperArea& strip,
                     const std::vector<LegendRow>& rows, double unit) {
  canvas.OpenPaper(strip);
  canvas.SetFontHeight(kLetters * unit);
  const double wanted = WholeWidth(canvas, rows, unit);
  unit *= std::min(1.0, strip.width / std::max(wanted, 1.0));
  canvas.SetFontHeight(kLetters * unit);
  const double baseLine = strip.Centre().y + (canvas.Ascent() - canvas.Descent()) / 2;
  double x = strip.Centre().x - WholeWidth(canvas, rows, unit) / 2;
  for (const LegendRow& row : rows) {
    const PaperPoint marker[] = {{x + kMarkerWidth * unit / 2, strip.Centre().y}};
    canvas.DrawMarkers(row.marker, marker, kMarkerWidth * unit, row.ink.value_or(InkOf(row.colour)),
                       unit);
    x += (kMarkerWidth + kToWord) * unit;
    canvas.Write({x, baseLine}, WordsOf(row));
    x += canvas.WidthOf(WordsOf(row)) + kToNext * unit;
  }
  canvas.ClosePaper();
}

}  // namespace velmora

#include "charts/PictureFile.h"

#include <algorithm>
#include <cmath>

#include "charts/ChartDrawing.h"
#include "charts/FigureLayout.h"
#include "charts/LegendStrip.h"

namespace velmora {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerInch = 72;
constexpr double kThinLine = 0.75;    // points
constexpr double kLetters = 12;       // thin lines: 9 points
constexpr double kLegendHeight = 26;  // thin lines

constexpr std::pair<std::string_view, PictureFormat> kSuffixes[] = {
    {".png", PictureFormat::Png}, {".svg", PictureFormat::Svg}, {".pdf", PictureFormat::Pdf}};

bool SameLetter(char a, char b) {
  return a == (b >= 'A' && b <= 'Z' ? static_cast<char>(b - 'A' + 'a') : b);
}

int Pixels(double millimetres, double dpi) {
  return std::max(1, static_cast<int>(std::lround(millimetres / kMillimetresPerInch * dpi)));
}

/// Whether the legend stands outside the axes.
bool IsLegendOutside(const FigureLayout& layout) {
  return layout.legend && !layout.frame.Contains(layout.legend->box.Centre());
}

/// Charts below each other end alike: where one legend has no place inside, none stands there.
void AlignLegends(std::vector<ChartContent>& charts, const PaperArea& paper, ChartCanvas& canvas,
                  const ChartStyle& style) {
  const bool outside = std::any_of(charts.begin(), charts.end(), [&](const ChartContent& chart) {
    return chart.figure && IsLegendOutside(LayOut(*chart.figure, paper, canvas, style));
  });
  for (ChartContent& chart : charts)
    if (chart.figure) chart.figure->legendOutside = outside;
}

}  // namespace

std::optional<PictureFormat> PictureFormatOf(std::string_view path) {
  for (const auto& [suffix, format] : kSuffixes)
    if (path.size() > suffix.size() &&
        std::equal(suffix.begin(), suffix.end(), path.end() - static_cast<int>(suffix.size()),
                   SameLetter))
      return format;
  return std::nullopt;
}

std::string PictureOf(std::vector<ChartContent> charts, int columns,
                      const std::vector<LegendRow>& legend, PictureFormat format,
                      const PictureSize& size) {
  const int width = Pixels(size.width, size.dpi), height = Pixels(size.height, size.dpi);
  CairoCanvas canvas(width, height, format, size.dpi);
  const double unit = kThinLine * size.dpi / kPointsPerInch;
  const double strip = legend.empty() ? 0 : kLegendHeight * unit;
  const int count = static_cast<int>(charts.size());
  const int rows = (count + columns - 1) / columns;
  const double wide = static_cast<double>(width) / columns, high = (height - strip) / rows;
  const ChartStyle style{PointStyle::Markers, unit, kLetters};
  if (columns == 1) AlignLegends(charts, {0, 0, wide, high}, canvas, style);
  for (int i = 0; i < count; ++i) {
    const int row = i / columns, column = i % columns;
    DrawChart(canvas, {wide * column, high * row, wide, high}, charts[static_cast<std::size_t>(i)],
              style);
  }
  if (strip > 0)
    DrawLegendStrip(canvas, {0, height - strip, static_cast<double>(width), strip}, legend, unit);
  return canvas.Bytes();
}

}  // namespace velmora

// Charts as files: PNG, SVG or PDF.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/CairoCanvas.h"
#include "charts/ChartContent.h"

namespace velmora {

/// By the end of a file's name, in small letters or capitals; nothing for any other than .png, .svg
/// and .pdf.
std::optional<PictureFormat> PictureFormatOf(std::string_view path);

/// How large a picture is, and of how many pixels an inch.
struct PictureSize {
  double width = 160;   // mm
  double height = 107;  // mm
  double dpi = 300;
};

/// The charts side by side in `columns`, row below row. Lines and letters have the same size on
/// paper whatever the resolution. `legend` stands below them; empty for none. Throws
/// `std::runtime_error` where the graphics library cannot draw.
std::string PictureOf(std::vector<ChartContent> charts, int columns,
                      const std::vector<LegendRow>& legend, PictureFormat format,
                      const PictureSize& size);

}  // namespace velmora

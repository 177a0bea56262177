// Charts as an enhanced metafile, the drawing that rich text can hold.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "charts/CairoCanvas.h"

namespace velmora {

/// Letters are those of cairo, as outlines: the drawing looks the same wherever it is read.
class EmfCanvas : public CairoCanvas {
 public:
  /// `width` by `height` pixels, `dpi` of which are an inch.
  EmfCanvas(int width, int height, double dpi);

  /// The file's bytes (Microsoft, MS-EMF: Enhanced Metafile Format).
  std::string Metafile() const;

  void OpenPaper(const PaperArea& area) override;
  void ClosePaper() override;
  void Write(const PaperPoint& start, std::string_view text) override;
  void WriteUpwards(const PaperPoint& start, std::string_view text) override;
  void DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) override;
  void DrawCurve(std::span<const PaperPoint> points, const Stroke& stroke) override;
  void DrawDots(std::span<const PaperPoint> centres, double width, Ink ink) override;
  void DrawMarkers(std::string_view marker, std::span<const PaperPoint> centres, double size,
                   Ink ink, double lineWidth) override;

 private:
  using Polygon = std::vector<PaperPoint>;

  void Add(std::uint32_t type, std::span<const std::int32_t> numbers);
  std::int32_t Scaled(double place) const;
  void Fill(std::span<const Polygon> polygons, Ink ink);
  void Trace(std::span<const PaperPoint> points, const Stroke& stroke);
  void FillText(const PaperPoint& start, std::string_view text, bool upwards);

  double scale_;  // hundredths of a millimetre in a pixel
  std::int32_t width_, height_;
  std::string records_;
  std::uint32_t count_ = 0;
};

}  // namespace velmora

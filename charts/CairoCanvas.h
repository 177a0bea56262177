// Charts as cairo draws them, into a picture or a vector file in memory.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "charts/ChartCanvas.h"

namespace velmora {

enum class PictureFormat : std::uint8_t { Png, Svg, Pdf };

class CairoCanvas : public ChartCanvas {
 public:
  /// `width` by `height` pixels, `dpi` of which are an inch.
  CairoCanvas(int width, int height, PictureFormat format = PictureFormat::Png, double dpi = 96);
  CairoCanvas(const CairoCanvas&) = delete;
  CairoCanvas& operator=(const CairoCanvas&) = delete;

  /// The file's bytes; nothing can be drawn any more. Throws `std::runtime_error` where anything
  /// that was drawn failed.
  std::string Bytes();

  void OpenPaper(const PaperArea& area) override;
  void ClosePaper() override;
  void SetFontHeight(double height) override;
  void SetTitleFontHeight(double height) override;
  double FontHeight() const override { return fontHeight_; }
  double Ascent() const override;
  double Descent() const override;
  double WidthOf(std::string_view text) const override;
  void Write(const PaperPoint& start, std::string_view text) override;
  void WriteUpwards(const PaperPoint& start, std::string_view text) override;
  void DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) override;
  void DrawCurve(std::span<const PaperPoint> points, const Stroke& stroke) override;
  void DrawDots(std::span<const PaperPoint> centres, double width, Ink ink) override;
  void DrawMarkers(std::string_view marker, std::span<const PaperPoint> centres, double size,
                   Ink ink, double lineWidth) override;

 protected:
  /// The outlines of a text's letters, flattened, about the start of its base line.
  std::vector<std::vector<PaperPoint>> TextOutlines(std::string_view text);

 private:
  struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* pen) const { cairo_destroy(pen); }
  };

  void SetFont(const char* family, double height);
  void SetStroke(const Stroke& stroke);
  void SetInk(Ink ink);
  void Trace(std::span<const PaperPoint> points);
  cairo_font_extents_t FontExtents() const;

  PictureFormat format_;
  double dpi_;
  std::string bytes_;  // that a vector surface has written
  std::unique_ptr<cairo_surface_t, Release> surface_;
  std::unique_ptr<cairo_t, Release> pen_;
  double fontHeight_ = 1;
};

}  // namespace velmora

#include "charts/CairoCanvas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>

#include "charts/MarkerFigures.h"

namespace velmora {
namespace {

constexpr double kWholeTurn = 2 * std::numbers::pi;
constexpr double kFullInk = 255;

void ThrowOnFailure(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

CairoCanvas::CairoCanvas(int width, int height)
    : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
      pen_(cairo_create(surface_.get())) {
  cairo_set_source_rgb(pen_.get(), 1, 1, 1);
  cairo_paint(pen_.get());
}

std::string CairoCanvas::Png() {
  ThrowOnFailure(cairo_status(pen_.get()));
  std::string bytes;
  ThrowOnFailure(cairo_surface_write_to_png_stream(surface_.get(), Append, &bytes));
  return bytes;
}

void CairoCanvas::OpenPaper(const PaperArea& area) {
  cairo_save(pen_.get());
  cairo_rectangle(pen_.get(), area.left, area.top, area.width, area.height);
  cairo_clip_preserve(pen_.get());
  cairo_set_source_rgb(pen_.get(), 1, 1, 1);
  cairo_fill(pen_.get());
}

void CairoCanvas::ClosePaper() {
  cairo_restore(pen_.get());
}

void CairoCanvas::SetFont(const char* family, double height) {
  fontHeight_ = std::max(1.0, std::round(height));
  cairo_select_font_face(pen_.get(), family, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(pen_.get(), fontHeight_);
}

void CairoCanvas::SetFontHeight(double height) {
  SetFont("sans-serif", height);
}

void CairoCanvas::SetTitleFontHeight(double height) {
  SetFont("MS Sans Serif", height);
}

cairo_font_extents_t CairoCanvas::FontExtents() const {
  cairo_font_extents_t extents;
  cairo_font_extents(pen_.get(), &extents);
  return extents;
}

double CairoCanvas::Ascent() const {
  return FontExtents().ascent;
}

double CairoCanvas::Descent() const {
  return FontExtents().descent;
}

double CairoCanvas::WidthOf(std::string_view text) const {
  cairo_text_extents_t extents;
  cairo_text_extents(pen_.get(), std::string(text).c_str(), &extents);
  return extents.x_advance;
}

void CairoCanvas::Write(const PaperPoint& start, std::string_view text) {
  SetInk({});
  cairo_move_to(pen_.get(), start.x, start.y);
  cairo_show_text(pen_.get(), std::string(text).c_str());
}

void CairoCanvas::WriteUpwards(const PaperPoint& start, std::string_view text) {
  cairo_save(pen_.get());
  cairo_translate(pen_.get(), start.x, start.y);
  cairo_rotate(pen_.get(), -kWholeTurn / 4);
  Write({}, text);
  cairo_restore(pen_.get());
}

void CairoCanvas::SetInk(Ink ink) {
  cairo_set_source_rgb(pen_.get(), ink.red / kFullInk, ink.green / kFullInk, ink.blue / kFullInk);
}

void CairoCanvas::SetStroke(const Stroke& stroke) {
  SetInk(stroke.ink);
  cairo_set_line_width(pen_.get(), stroke.width);
  cairo_set_line_join(pen_.get(), CAIRO_LINE_JOIN_MITER);
  const double on = stroke.kind == LineKind::Dashed ? 4 * stroke.width : stroke.width;
  const double lengths[] = {on, 2 * stroke.width};
  const bool solid = stroke.kind == LineKind::Solid;
  cairo_set_dash(pen_.get(), lengths, solid ? 0 : 2, 0);
  cairo_set_line_cap(pen_.get(), solid ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
}

void CairoCanvas::Trace(std::span<const PaperPoint> points) {
  for (const PaperPoint& point : points) cairo_line_to(pen_.get(), point.x, point.y);
}

void CairoCanvas::DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) {
  for (const PaperLine& line : lines) DrawCurve(std::array{line.from, line.to}, stroke);
}

void CairoCanvas::DrawCurve(std::span<const PaperPoint> points, const Stroke& stroke) {
  SetStroke(stroke);
  Trace(points);
  cairo_stroke(pen_.get());
}

void CairoCanvas::DrawDots(std::span<const PaperPoint> centres, double width, Ink ink) {
  SetInk(ink);
  for (const PaperPoint& centre : centres) {
    cairo_arc(pen_.get(), centre.x, centre.y, width / 2, 0, kWholeTurn);
    cairo_fill(pen_.get());
  }
}

void CairoCanvas::DrawMarkers(std::string_view marker, std::span<const PaperPoint> centres,
                              double size, Ink ink, double lineWidth) {
  const MarkerFigure shape = FigureOf(marker);
  const double side = size - lineWidth;
  for (const PaperPoint& centre : centres) {
    cairo_save(pen_.get());
    cairo_translate(pen_.get(), centre.x, centre.y);
    cairo_new_path(pen_.get());
    switch (shape.figure) {
      case Figure::Circle:
        cairo_arc(pen_.get(), 0, 0, side / 2, 0, kWholeTurn);
        break;
      case Figure::Square:
        cairo_rectangle(pen_.get(), -side / 2, -side / 2, side, side);
        break;
      case Figure::Triangle:
        Trace(TriangleCorners(side, shape.turn));
        break;
    }
    cairo_close_path(pen_.get());
    SetInk(shape.filled ? ink : Ink{255, 255, 255});
    cairo_fill_preserve(pen_.get());
    SetStroke({ink, lineWidth});
    cairo_stroke(pen_.get());
    cairo_restore(pen_.get());
  }
}

}  // namespace velmora

#include "charts/CairoCanvas.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "charts/MarkerFigures.h"

namespace velmora {
namespace {

constexpr double kWholeTurn = 2 * std::numbers::pi;
constexpr double kFullInk = 255;

void ThrowOnFailure(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

constexpr double kPointsPerInch = 72;

// The first chunk of a PNG file, with the size of the picture, ends here.
constexpr std::size_t kHeaderEnd = 33;

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* NewSurface(PictureFormat format, int width, int height, double dpi,
                            std::string& bytes) {
  const double wide = width * kPointsPerInch / dpi, high = height * kPointsPerInch / dpi;
  switch (format) {
    case PictureFormat::Svg:
      return cairo_svg_surface_create_for_stream(Append, &bytes, wide, high);
    case PictureFormat::Pdf:
      return cairo_pdf_surface_create_for_stream(Append, &bytes, wide, high);
    case PictureFormat::Png:
      break;
  }
  return cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
}

std::string BigEndian(std::uint32_t value) {
  std::string bytes;
  for (const unsigned shift : {24U, 16U, 8U, 0U})
    bytes += static_cast<char>(static_cast<unsigned char>(value >> shift));
  return bytes;
}

/// The check sum of a PNG chunk (ISO 3309).
std::uint32_t CheckSum(std::string_view bytes) {
  std::uint32_t sum = 0xFFFFFFFFU;
  for (const char c : bytes) {
    sum ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~sum;
}

/// The PNG file with its resolution (chunk pHYs, pixels a metre), which cairo does not write.
std::string WithResolution(std::string png, double dpi) {
  constexpr double kInchesPerMetre = 1 / 0.0254;
  const auto perMetre = static_cast<std::uint32_t>(std::lround(dpi * kInchesPerMetre));
  const std::string chunk = "pHYs" + BigEndian(perMetre) + BigEndian(perMetre) + '\1';
  constexpr std::uint32_t kLength = 9;
  png.insert(kHeaderEnd, BigEndian(kLength) + chunk + BigEndian(CheckSum(chunk)));
  return png;
}

}  // namespace

CairoCanvas::CairoCanvas(int width, int height, PictureFormat format, double dpi)
    : format_(format),
      dpi_(dpi),
      surface_(NewSurface(format, width, height, dpi, bytes_)),
      pen_(cairo_create(surface_.get())) {
  if (format != PictureFormat::Png)
    cairo_scale(pen_.get(), kPointsPerInch / dpi, kPointsPerInch / dpi);
  cairo_set_source_rgb(pen_.get(), 1, 1, 1);
  cairo_paint(pen_.get());
}

std::string CairoCanvas::Bytes() {
  ThrowOnFailure(cairo_status(pen_.get()));
  if (format_ == PictureFormat::Png) {
    ThrowOnFailure(cairo_surface_write_to_png_stream(surface_.get(), Append, &bytes_));
    return WithResolution(bytes_, dpi_);
  }
  cairo_surface_finish(surface_.get());
  ThrowOnFailure(cairo_surface_status(surface_.get()));
  return bytes_;
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
  const bool solid = stroke.kind == LineKind::Solid;
  std::vector<double> lengths;
  for (const double length : DashesOf(stroke.kind)) lengths.push_back(length * stroke.width);
  cairo_set_dash(pen_.get(), lengths.data(), static_cast<int>(lengths.size()), 0);
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
    switch (shape.shape) {
      case Shape::Circle:
        cairo_arc(pen_.get(), 0, 0, side / 2, 0, kWholeTurn);
        break;
      case Shape::Square:
        cairo_rectangle(pen_.get(), -side / 2, -side / 2, side, side);
        break;
      case Shape::Triangle:
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

std::vector<std::vector<PaperPoint>> CairoCanvas::TextOutlines(std::string_view text) {
  constexpr double kSmooth = 0.05;  // pixels between a curve and its pieces
  cairo_new_path(pen_.get());
  cairo_set_tolerance(pen_.get(), kSmooth);
  cairo_move_to(pen_.get(), 0, 0);
  cairo_text_path(pen_.get(), std::string(text).c_str());
  const std::unique_ptr<cairo_path_t, decltype(&cairo_path_destroy)> path(
      cairo_copy_path_flat(pen_.get()), cairo_path_destroy);
  cairo_new_path(pen_.get());
  std::vector<std::vector<PaperPoint>> outlines;
  for (int i = 0; i < path->num_data; i += path->data[i].header.length) {
    const cairo_path_data_type_t type = path->data[i].header.type;
    if (type == CAIRO_PATH_CLOSE_PATH) continue;
    if (type == CAIRO_PATH_MOVE_TO || outlines.empty()) outlines.emplace_back();
    outlines.back().push_back({path->data[i + 1].point.x, path->data[i + 1].point.y});
  }
  return outlines;
}

}  // namespace velmora

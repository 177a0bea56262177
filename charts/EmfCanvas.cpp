#include "charts/EmfCanvas.h"

#include <array>
#include <cmath>
#include <numbers>

#include "charts/MarkerFigures.h"

namespace velmora {
namespace {

constexpr double kHundredthsPerInch = 2540;
constexpr int kCircleCorners = 32;

// The types of records.
constexpr std::uint32_t kHeader = 1, kPolyline = 4, kPolyPolygon = 8, kWindowExtent = 9,
                        kWindowOrigin = 10, kViewportExtent = 11, kViewportOrigin = 12, kEnd = 14,
                        kMapMode = 17, kBackgroundMode = 18, kFillMode = 19, kClip = 30, kSave = 33,
                        kRestore = 34, kSelect = 37, kNewBrush = 39, kDelete = 40, kNewPen = 95;

constexpr std::int32_t kObject = 1;  // the handle of the one pen or brush that lives at a time
constexpr auto kNoBrush = static_cast<std::int32_t>(0x80000005U);
constexpr auto kNoPen = static_cast<std::int32_t>(0x80000008U);
constexpr std::int32_t kGeometric = 0x00010000, kFlatEnds = 0x200, kMitred = 0x2000;
constexpr std::int32_t kAnisotropic = 8, kTransparent = 1, kWinding = 2;

std::int32_t ColourOf(Ink ink) {
  return ink.red | ink.green << 8 | ink.blue << 16;
}

void Append(std::string& bytes, std::uint32_t number) {
  for (const unsigned shift : {0U, 8U, 16U, 24U})
    bytes += static_cast<char>(static_cast<unsigned char>(number >> shift));
}

std::string Record(std::uint32_t type, std::span<const std::int32_t> numbers) {
  std::string bytes;
  Append(bytes, type);
  Append(bytes, static_cast<std::uint32_t>(8 + 4 * numbers.size()));
  for (const std::int32_t number : numbers) Append(bytes, static_cast<std::uint32_t>(number));
  return bytes;
}

double Distance(const PaperPoint& a, const PaperPoint& b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

/// The pieces of a line that its kind draws.
std::vector<std::vector<PaperPoint>> PiecesOf(std::span<const PaperPoint> points,
                                              const Stroke& stroke) {
  const std::span<const double> dashes = DashesOf(stroke.kind);
  std::vector<std::vector<PaperPoint>> pieces{{}};
  if (points.empty()) return pieces;
  pieces.back().push_back(points.front());
  if (dashes.empty()) return {{points.begin(), points.end()}};
  std::size_t dash = 0;
  double left = dashes[0] * stroke.width;
  for (std::size_t k = 1; k < points.size(); ++k) {
    PaperPoint at = points[k - 1];
    for (double rest = Distance(at, points[k]); rest > 0; rest = Distance(at, points[k])) {
      const double step = std::min(left, rest);
      at = {at.x + (points[k].x - at.x) * step / rest, at.y + (points[k].y - at.y) * step / rest};
      if (dash % 2 == 0) pieces.back().push_back(at);
      left -= step;
      if (step == rest) break;
      dash = (dash + 1) % dashes.size();
      left = dashes[dash] * stroke.width;
      if (dash % 2 == 0) pieces.push_back({at});
    }
  }
  return pieces;
}

std::vector<PaperPoint> Circle(const PaperPoint& centre, double radius) {
  std::vector<PaperPoint> corners;
  for (int i = 0; i < kCircleCorners; ++i) {
    const double angle = 2 * std::numbers::pi * i / kCircleCorners;
    corners.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
  return corners;
}

std::vector<PaperPoint> OutlineOf(const MarkerFigure& figure, const PaperPoint& centre,
                                  double side) {
  if (figure.shape == Shape::Circle) return Circle(centre, side / 2);
  const double half = side / 2;
  std::vector<PaperPoint> corners;
  if (figure.shape == Shape::Square)
    corners = {{-half, -half}, {half, -half}, {half, half}, {-half, half}};
  else
    for (const PaperPoint& corner : TriangleCorners(side, figure.turn)) corners.push_back(corner);
  for (PaperPoint& corner : corners) corner = {corner.x + centre.x, corner.y + centre.y};
  return corners;
}

}  // namespace

EmfCanvas::EmfCanvas(int width, int height, double dpi)
    : CairoCanvas(1, 1),
      scale_(kHundredthsPerInch / dpi),
      width_(Scaled(width)),
      height_(Scaled(height)) {
  Add(kMapMode, std::array{kAnisotropic});
  Add(kWindowOrigin, std::array{0, 0});
  Add(kWindowExtent, std::array{width_, height_});
  Add(kViewportOrigin, std::array{0, 0});
  Add(kViewportExtent, std::array{width_, height_});
  Add(kBackgroundMode, std::array{kTransparent});
  Add(kFillMode, std::array{kWinding});
}

std::int32_t EmfCanvas::Scaled(double place) const {
  return static_cast<std::int32_t>(std::lround(place * scale_));
}

void EmfCanvas::Add(std::uint32_t type, std::span<const std::int32_t> numbers) {
  records_ += Record(type, numbers);
  ++count_;
}

/// The reference device has a hundredth of a millimetre for its pixel, and is a metre wide.
std::string EmfCanvas::Metafile() const {
  constexpr std::int32_t kSignature = 0x464D4520, kVersion = 0x10000, kHandles = 2;
  constexpr std::int32_t kDevicePixels = 100000, kDeviceMillimetres = 1000;
  const std::string end = Record(kEnd, std::array{0, 16, 20});
  std::array<std::int32_t, 20> header{0,
                                      0,
                                      width_ - 1,
                                      height_ - 1,
                                      0,
                                      0,
                                      width_,
                                      height_,
                                      kSignature,
                                      kVersion,
                                      0,
                                      static_cast<std::int32_t>(count_ + 2),
                                      kHandles,
                                      0,
                                      0,
                                      0,
                                      kDevicePixels,
                                      kDevicePixels,
                                      kDeviceMillimetres,
                                      kDeviceMillimetres};
  header[10] = static_cast<std::int32_t>(8 + 4 * header.size() + records_.size() + end.size());
  return Record(kHeader, header) + records_ + end;
}

void EmfCanvas::Fill(std::span<const Polygon> polygons, Ink ink) {
  std::vector<std::int32_t> counts, points;
  for (const Polygon& polygon : polygons) {
    if (polygon.size() < 3) continue;
    counts.push_back(static_cast<std::int32_t>(polygon.size()));
    for (const PaperPoint& point : polygon)
      points.push_back(Scaled(point.x)), points.push_back(Scaled(point.y));
  }
  if (counts.empty()) return;
  std::vector<std::int32_t> numbers{0,
                                    0,
                                    width_ - 1,
                                    height_ - 1,
                                    static_cast<std::int32_t>(counts.size()),
                                    static_cast<std::int32_t>(points.size() / 2)};
  numbers.insert(numbers.end(), counts.begin(), counts.end());
  numbers.insert(numbers.end(), points.begin(), points.end());
  Add(kNewBrush, std::array{kObject, 0, ColourOf(ink), 0});
  Add(kSelect, std::array{kObject});
  Add(kSelect, std::array{kNoPen});
  Add(kPolyPolygon, numbers);
  Add(kSelect, std::array{kNoBrush});
  Add(kDelete, std::array{kObject});
}

void EmfCanvas::Trace(std::span<const PaperPoint> points, const Stroke& stroke) {
  if (points.size() < 2) return;
  const std::int32_t ends = stroke.kind == LineKind::Solid ? 0 : kFlatEnds;
  Add(kNewPen, std::array{kObject, 0, 0, 0, 0, kGeometric | ends | kMitred, Scaled(stroke.width), 0,
                          ColourOf(stroke.ink), 0, 0});
  Add(kSelect, std::array{kObject});
  Add(kSelect, std::array{kNoBrush});
  for (const auto& piece : PiecesOf(points, stroke)) {
    if (piece.size() < 2) continue;
    std::vector<std::int32_t> numbers{0, 0, width_ - 1, height_ - 1,
                                      static_cast<std::int32_t>(piece.size())};
    for (const PaperPoint& point : piece)
      numbers.push_back(Scaled(point.x)), numbers.push_back(Scaled(point.y));
    Add(kPolyline, numbers);
  }
  Add(kSelect, std::array{kNoPen});
  Add(kDelete, std::array{kObject});
}

void EmfCanvas::OpenPaper(const PaperArea& area) {
  Add(kSave, {});
  Add(kClip,
      std::array{Scaled(area.left), Scaled(area.top), Scaled(area.Right()), Scaled(area.Bottom())});
  const Polygon paper{{area.left, area.top},
                      {area.Right(), area.top},
                      {area.Right(), area.Bottom()},
                      {area.left, area.Bottom()}};
  Fill(std::span(&paper, 1), {255, 255, 255});
}

void EmfCanvas::ClosePaper() {
  Add(kRestore, std::array{-1});
}

void EmfCanvas::FillText(const PaperPoint& start, std::string_view text, bool upwards) {
  std::vector<Polygon> outlines;
  for (std::vector<PaperPoint>& outline : TextOutlines(text)) {
    for (PaperPoint& point : outline)
      point = upwards ? PaperPoint{start.x + point.y, start.y - point.x}
                      : PaperPoint{start.x + point.x, start.y + point.y};
    outlines.push_back(std::move(outline));
  }
  Fill(outlines, {});
}

void EmfCanvas::Write(const PaperPoint& start, std::string_view text) {
  FillText(start, text, false);
}

void EmfCanvas::WriteUpwards(const PaperPoint& start, std::string_view text) {
  FillText(start, text, true);
}

void EmfCanvas::DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) {
  for (const PaperLine& line : lines) Trace(std::array{line.from, line.to}, stroke);
}

void EmfCanvas::DrawCurve(std::span<const PaperPoint> points, const Stroke& stroke) {
  Trace(points, stroke);
}

void EmfCanvas::DrawDots(std::span<const PaperPoint> centres, double width, Ink ink) {
  for (const PaperPoint& centre : centres) {
    const Polygon dot = Circle(centre, width / 2);
    Fill(std::span(&dot, 1), ink);
  }
}

void EmfCanvas::DrawMarkers(std::string_view marker, std::span<const PaperPoint> centres,
                            double size, Ink ink, double lineWidth) {
  const MarkerFigure figure = FigureOf(marker);
  for (const PaperPoint& centre : centres) {
    Polygon outline = OutlineOf(figure, centre, size - lineWidth);
    Fill(std::span(&outline, 1), figure.filled ? ink : Ink{255, 255, 255});
    outline.push_back(outline.front());
    outline.push_back(outline[1]);
    Trace(outline, {ink, lineWidth, LineKind::Solid});
  }
}

}  // namespace velmora

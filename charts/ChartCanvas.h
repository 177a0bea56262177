// What a chart is drawn on: a window, a picture, a page.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace velmora {

/// A place on paper, in the canvas's units: to the right and downwards.
struct PaperPoint {
  double x = 0;
  double y = 0;

  friend bool operator==(const PaperPoint&, const PaperPoint&) = default;
};

struct PaperLine {
  PaperPoint from;
  PaperPoint to;
};

struct PaperArea {
  double left = 0, top = 0, width = 0, height = 0;

  double Right() const { return left + width; }
  double Bottom() const { return top + height; }
  PaperPoint Centre() const { return {left + width / 2, top + height / 2}; }
  PaperArea Grown(double by) const {
    return {left - by, top - by, width + 2 * by, height + 2 * by};
  }
  /// The edges belong to it.
  bool Contains(const PaperPoint& point) const {
    return point.x >= left && point.x <= Right() && point.y >= top && point.y <= Bottom();
  }
};

struct Ink {
  std::uint8_t red = 0, green = 0, blue = 0;
};

enum class LineKind : std::uint8_t { Solid, Dotted, Dashed, DashDotted, DashDotDotted };

struct Stroke {
  Ink ink;
  double width = 1;
  LineKind kind = LineKind::Solid;
};

/// Each toolkit that can draw a chart has one. Texts are UTF-8, in black.
class ChartCanvas {
 public:
  virtual ~ChartCanvas() = default;

  /// Begins a white paper; what is drawn outside `area` is cut off until the paper is closed.
  virtual void OpenPaper(const PaperArea& area) = 0;
  virtual void ClosePaper() = 0;

  /// Letters `height` high, rounded to whole units; at least 1.
  virtual void SetFontHeight(double height) = 0;
  /// The same in "MS Sans Serif", the family of a user's title, where there is one of that name.
  virtual void SetTitleFontHeight(double height) = 0;
  virtual double FontHeight() const = 0;
  virtual double Ascent() const = 0;
  virtual double Descent() const = 0;
  virtual double WidthOf(std::string_view text) const = 0;

  /// Writes from `start` on the base line, to the right or upwards.
  virtual void Write(const PaperPoint& start, std::string_view text) = 0;
  virtual void WriteUpwards(const PaperPoint& start, std::string_view text) = 0;

  virtual void DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) = 0;
  /// One line through all the points, so that dots and dashes run on from piece to piece.
  virtual void DrawCurve(std::span<const PaperPoint> points, const Stroke& stroke) = 0;
  /// A dot `width` wide at each of the points.
  virtual void DrawDots(std::span<const PaperPoint> centres, double width, Ink ink) = 0;
  /// The figure of a marker (marker) round each of the points, `size` wide.
  virtual void DrawMarkers(std::string_view marker, std::span<const PaperPoint> centres,
                           double size, Ink ink, double lineWidth) = 0;
};

}  // namespace velmora

#include "charts/ChartDrawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "charts/ChartLetters.h"
#include "charts/FigureLayout.h"
#include "charts/MarkerFigures.h"
#include "data/Experiment.h"

namespace velmora {
namespace {

constexpr Ink kBlack{0, 0, 0};
constexpr Stroke kAxisStroke{kBlack, 1, LineKind::Solid};
constexpr Stroke kGridStroke{{0xC0, 0xC0, 0xC0}, 1, LineKind::Dotted};

// Sizes in units.
constexpr double kDotWidth = 6;
constexpr double kMarkerWidth = 10;
constexpr double kSameDot = 0.5;    // a dot nearer to the one before adds nothing
constexpr double kLabelToAxis = 4;  // between a concentration label and its axis
constexpr double kLeastFontHeight = 6;
constexpr double kTickToTick = 4;  // nearer to each other ticks and grid lines run together

/// The least of 1, 2, 5, 10, 20, ... that is at least `wanted` and a multiple of `unit`.
std::size_t Stride(double wanted, std::size_t unit = 1) {
  constexpr std::size_t kMost = 100000;  // for axes without length, of which all but one goes
  for (std::size_t decade = 1;; decade *= 10)
    for (const std::size_t stride : {decade, 2 * decade, 5 * decade})
      if (stride >= kMost || (!(static_cast<double>(stride) < wanted) && stride % unit == 0))
        return stride;
}

bool HasColour(std::int32_t number) {
  return number >= 1 && number <= static_cast<std::int32_t>(kColours.size());
}

double WidestOf(const std::vector<PlotLabel>& labels, const ChartCanvas& canvas) {
  double widest = 0;
  for (const PlotLabel& label : labels) widest = std::max(widest, canvas.WidthOf(label.text));
  return widest;
}

/// The paper, the user coordinates on it, and the size of its letters.
class Sheet {
 public:
  Sheet(ChartCanvas& canvas, const PaperArea& paper, const ChartContent& content,
        const ChartStyle& style)
      : canvas_(canvas), paper_(paper), content_(content), style_(style) {
    canvas_.SetFontHeight(LetterHeight(paper, style));
  }

  void Draw() {
    canvas_.OpenPaper(paper_);
    DrawAxes();
    WriteTimeLabels();
    WriteConcentrationLabels();
    WriteTitle();
    DrawPoints();
    DrawCurves();
    canvas_.ClosePaper();
  }

 private:
  const PlotScale& Scale() const { return content_.scale; }
  double Units(double count) const { return count * style_.unit; }
  PaperPoint At(const PlotPoint& point) const { return ToPaper(Scale(), paper_, point); }
  PaperPoint Origin() const { return At({Scale().origin, 0}); }

  double LineHeight() const { return canvas_.Ascent() + canvas_.Descent(); }

  /// Nothing is on the chart: numbers would stand about without an axis.
  bool HasNoAxes() const { return !HasWidth(Scale()) && !HasHeight(Scale()); }

  double TimeDistance() const { return At({Scale().origin + Scale().tickX, 0}).x - Origin().x; }
  double ConcentrationDistance() const {
    return Origin().y - At({Scale().origin, Scale().tickY}).y;
  }
  std::size_t TickStride(double distance) const { return Stride(Units(kTickToTick) / distance); }

  void DrawAxes() {
    if (HasNoAxes()) return;
    const std::size_t time = TickStride(TimeDistance());
    const std::size_t concentration = TickStride(ConcentrationDistance());
    if (content_.gridLines) {
      DrawLines(Scale().levels, concentration - 1, concentration, kGridStroke);
      DrawLines(Scale().moments, time - 1, time, kGridStroke);
    }
    DrawLines(Scale().axes, 0, 1, kAxisStroke);
    DrawLines(Scale().timeTicks, 0, time, kAxisStroke);
    DrawLines(Scale().concentrationTicks, 0, concentration, kAxisStroke);
  }

  /// Every `stride`-th line from the one at `first` on; the stroke is a unit wide.
  void DrawLines(const std::vector<PlotLine>& lines, std::size_t first, std::size_t stride,
                 Stroke stroke) {
    std::vector<PaperLine> onPaper;
    for (std::size_t i = first; i < lines.size(); i += stride)
      onPaper.push_back({At(lines[i].from), At(lines[i].to)});
    stroke.width = Units(stroke.width);
    canvas_.DrawLines(onPaper, stroke);
  }

  /// The label at 0 begins at its tick, so that it keeps clear of the other axis's labels; the
  /// others are centred. Where all would touch each other, every second, fifth, ... is left.
  void WriteTimeLabels() {
    const std::vector<PlotLabel>& labels = Scale().timeLabels;
    if (labels.empty() || HasNoAxes()) return WriteTimeTitle(Origin().y);
    const double first = canvas_.WidthOf(labels.front().text);
    const double widest = WidestOf(labels, canvas_);
    const double gap = canvas_.WidthOf("0") / 2;
    const double step = TimeDistance();
    const std::size_t stride =
        Stride((std::max(widest, first + widest / 2) + gap) / step, TickStride(step));
    for (std::size_t i = 0; i < labels.size(); i += stride) {
      const PaperPoint at = At(labels[i].at);
      const double left = i == 0 ? at.x : at.x - canvas_.WidthOf(labels[i].text) / 2;
      canvas_.Write({left, at.y + canvas_.Ascent()}, labels[i].text);
    }
    WriteTimeTitle(At(labels.front().at).y + LineHeight());
  }

  /// "t (h)", below the labels.
  void WriteTimeTitle(double labelsBottom) {
    const PaperPoint at = At({HasWidth(Scale()) ? Scale().timeTitleAt.x : Scale().origin + 0.47,
                              HasHeight(Scale()) ? Scale().timeTitleAt.y : -0.1});
    const double lowest = paper_.Bottom() - LineHeight();
    const double top = std::min(std::max(at.y, labelsBottom), lowest);
    canvas_.Write({at.x, top + canvas_.Ascent()}, "t (h)");
  }

  /// Labels end left of the axis, also where they are wider than their place, and stand beside
  /// their tick. The plot's own title keeps its room: long labels are written smaller.
  void WriteConcentrationLabels() {
    if (HasNoAxes()) return WriteVariable(paper_.Right());
    const double usual = canvas_.FontHeight();
    const double axis = Origin().x - Units(kLabelToAxis);
    const double titleWidth = LineHeight() + Units(3);
    const double room = std::max(axis - paper_.left - titleWidth, 1.0);
    const double widest = WidestOf(Scale().concentrationLabels, canvas_);
    if (widest > room)
      canvas_.SetFontHeight(std::max(std::floor(usual * room / widest), Units(kLeastFontHeight)));
    const double left = WriteConcentrationLabels(axis);
    canvas_.SetFontHeight(usual);
    WriteVariable(left - titleWidth);
  }

  /// Returns where the leftmost of the labels begins.
  double WriteConcentrationLabels(double axis) {
    const std::vector<PlotLabel>& labels = Scale().concentrationLabels;
    const double height = LineHeight();
    const double step = ConcentrationDistance();
    const std::size_t stride = Stride(height / step, TickStride(step));
    double leftmost = axis;
    for (std::size_t i = 0; i < labels.size(); i += stride) {
      const PaperPoint at = At(labels[i].at);
      const double tick = Origin().y - static_cast<double>(i) * step;
      const double left = std::min(at.x, axis - canvas_.WidthOf(labels[i].text));
      const double middle = tick - height / 2;
      const double top = HasHeight(Scale()) ? std::max(at.y, middle) : middle;
      canvas_.Write({left, top + canvas_.Ascent()}, labels[i].text);
      leftmost = std::min(leftmost, left);
    }
    return leftmost;
  }

  /// The variable's name, upwards along its axis; its left edge stands at `most` or farther left.
  void WriteVariable(double most) {
    const PaperPoint at = At({HasWidth(Scale()) ? Scale().titleAt.x : Scale().origin - 0.17,
                              HasHeight(Scale()) ? Scale().titleAt.y : 1.15 / 3});
    const double left = std::max(paper_.left + Units(1), std::min(at.x, most));
    canvas_.WriteUpwards({left + canvas_.Ascent(), at.y}, PlotTitle(content_.variable));
  }

  /// The user's title, in the middle of the room above the axes; a long one is broken, and smaller
  /// where it needs more lines than have room.
  void WriteTitle() {
    if (content_.title.empty()) return;
    const double usual = canvas_.FontHeight();
    const PaperPoint axisTop = At({Scale().origin, HasHeight(Scale()) ? Scale().Ymax : 1});
    const double height = axisTop.y - paper_.top, width = paper_.Right() - axisTop.x;
    std::vector<std::string> lines;
    for (const double size : {1.25, 1.0, 0.8, 0.65}) {
      canvas_.SetTitleFontHeight(usual * size);
      const auto most = static_cast<std::size_t>(std::max(1.0, height / LineHeight()));
      lines = Wrapped(content_.title, width - Units(8), most + 1, canvas_);
      if (lines.size() <= most) break;
      lines = Wrapped(content_.title, width - Units(8), most, canvas_);
    }
    double base = paper_.top + (height - static_cast<double>(lines.size()) * LineHeight()) / 2 +
                  canvas_.Ascent();
    for (const std::string& line : lines) {
      canvas_.Write({axisTop.x + (width - canvas_.WidthOf(line)) / 2, base}, line);
      base += LineHeight();
    }
    canvas_.SetFontHeight(usual);
  }

  /// An unknown colour is that of what was drawn before.
  void DrawPoints() {
    Ink ink = kBlack;
    for (const PlottedExperiment& experiment : content_.experiments) {
      if (!experiment.visible) continue;
      if (HasColour(experiment.colour)) ink = InkOf(experiment.colour);
      DrawPoints(experiment, ink);
    }
  }

  void DrawPoints(const PlottedExperiment& experiment, Ink ink) {
    const PaperArea near = paper_.Grown(Units(kMarkerWidth));
    std::vector<PaperPoint> centres;
    centres.reserve(experiment.points.size());
    for (const PlotPoint& point : experiment.points) {
      const PaperPoint at = At(point);
      if (near.Contains(at) && (centres.empty() || Apart(at, centres.back()) >= Units(kSameDot)))
        centres.push_back(at);
    }
    if (style_.points == PointStyle::Dots)
      canvas_.DrawDots(centres, Units(kDotWidth), ink);
    else
      canvas_.DrawMarkers(experiment.marker, centres, Units(kMarkerWidth), ink, Units(1.5));
  }

  static double Apart(const PaperPoint& a, const PaperPoint& b) {
    return std::abs(a.x - b.x) + std::abs(a.y - b.y);
  }

  /// Curves may leave the axes (a model that overshoots); the paper's edge cuts them.
  void DrawCurves() {
    for (const PlottedExperiment& experiment : content_.experiments)
      DrawCurve(experiment.curve, {kBlack, Units(1), LineKindOf(experiment.line)});
  }

  /// One line through all points between two places where the curve leaves the paper.
  void DrawCurve(const std::vector<PlotPoint>& curve, const Stroke& stroke) {
    const PaperArea frame = paper_.Grown(Units(2));
    std::vector<PaperPoint> piece;
    for (std::size_t k = 1; k < curve.size(); ++k) {
      const auto segment = Cut({At(curve[k - 1]), At(curve[k])}, frame);
      if (!segment) continue;
      if (piece.empty() || piece.back() != segment->from) {
        canvas_.DrawCurve(piece, stroke);
        piece = {segment->from};
      }
      piece.push_back(segment->to);
    }
    canvas_.DrawCurve(piece, stroke);
  }

  ChartCanvas& canvas_;
  PaperArea paper_;
  const ChartContent& content_;
  const ChartStyle& style_;
};

}  // namespace

void DrawChart(ChartCanvas& canvas, const PaperArea& paper, const ChartContent& content,
               const ChartStyle& style) {
  if (content.figure) return DrawFigure(canvas, paper, *content.figure, style);
  Sheet(canvas, paper, content, style).Draw();
}

}  // namespace velmora

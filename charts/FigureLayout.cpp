#include "charts/FigureLayout.h"

#include <algorithm>
#include <cmath>

#include "charts/ChartLetters.h"
#include "charts/FigureLegend.h"

namespace velmora {
namespace {

// Sizes in units.
constexpr double kMargin = 6;
constexpr double kTickLength = 4;
constexpr double kGap = 4;  // between a tick and its label, a label and the axis's title

constexpr double kTitleSize = 1.2;  // of the labels' height
constexpr std::size_t kTitleLines = 5;
constexpr double kTitleWidth = 0.8;          // of the paper
constexpr double kLabelsPerLine = 3;         // lines of letters from one label to the next, upwards
constexpr int kMostTimes = 11;               // labels: more are not read
constexpr const char* kUsualLabel = "0.00";  // room by which charts below each other run alike
constexpr double kLeastFrame = 10;           // units

double Logarithm(double value, bool logarithmic) {
  return logarithmic ? std::log10(value) : value;
}

bool IsLogarithmic(const FigureAxis& axis) {
  return axis.logarithmic && axis.range.from > 0;
}

double WidestOf(const AxisTicks& axis, const ChartCanvas& canvas) {
  double widest = 0;
  for (const Tick& tick : axis.ticks) widest = std::max(widest, canvas.WidthOf(tick.text));
  return widest;
}

class Layout {
 public:
  Layout(const Figure& figure, const PaperArea& paper, ChartCanvas& canvas, const ChartStyle& style)
      : figure_(figure), paper_(paper), canvas_(canvas) {
    layout_.unit = style.unit;
    layout_.letters = LetterHeight(paper, style);
    layout_.titleLetters = kTitleSize * layout_.letters;
  }

  FigureLayout Made() {
    canvas_.SetFontHeight(layout_.letters);
    line_ = canvas_.Ascent() + canvas_.Descent();
    WrapTitle();
    LayAxes(0, 0);
    if (figure_.legend) PlaceLegend();
    WriteLabels();
    WriteTitles();
    return std::move(layout_);
  }

 private:
  double Units(double count) const { return count * layout_.unit; }

  void WrapTitle() {
    canvas_.SetTitleFontHeight(layout_.titleLetters);
    titleLine_ = canvas_.Ascent() + canvas_.Descent();
    titleAscent_ = canvas_.Ascent();
    titleLines_ = Wrapped(figure_.title, kTitleWidth * paper_.width, kTitleLines, canvas_);
    for (const std::string& text : titleLines_) titleWidths_.push_back(canvas_.WidthOf(text));
    canvas_.SetFontHeight(layout_.letters);
  }

  /// The frame and its axes, with room kept free at the right and below for a legend outside.
  void LayAxes(double atRight, double below) {
    const double titles = static_cast<double>(titleLines_.size()) * titleLine_;
    const double top = paper_.top + Units(kMargin) + titles + line_ / 2;
    const double bottom =
        paper_.Bottom() - Units(kMargin) - below - 2 * line_ - Units(kTickLength + 2 * kGap);
    layout_.y = {TicksOf(figure_.y, static_cast<int>((bottom - top) / (kLabelsPerLine * line_)),
                         figure_.separator),
                 IsLogarithmic(figure_.y), std::max(bottom, top + Units(kLeastFrame)), top};
    labelsWidth_ = std::max(WidestOf(layout_.y.ticks, canvas_), canvas_.WidthOf(kUsualLabel));
    const double left =
        paper_.left + Units(kMargin + kTickLength + 2 * kGap) + line_ + labelsWidth_;
    const double right = paper_.Right() - Units(kMargin) - atRight - 2 * canvas_.WidthOf("0");
    LayTimes(left, std::max(right, left + Units(kLeastFrame)));
    layout_.frame = {left, top, layout_.x.last - left, layout_.y.first - top};
  }

  /// As many labels as do not touch.
  void LayTimes(double left, double right) {
    const int most =
        std::min(kMostTimes, static_cast<int>((right - left) / (3 * canvas_.WidthOf("0"))) + 1);
    for (int count = std::max(most, 2); count >= 2; --count) {
      layout_.x = {TicksOf(figure_.x, count, figure_.separator), IsLogarithmic(figure_.x), left,
                   right};
      if (LabelsApart()) return;
    }
  }

  bool LabelsApart() const {
    double end = paper_.left - paper_.width;
    for (const auto& [at, text] : layout_.x.ticks.ticks) {
      if (text.empty()) continue;
      const double half = canvas_.WidthOf(text) / 2, middle = layout_.x.ToPaper(at);
      if (middle - half < end) return false;
      end = middle + half + canvas_.WidthOf("0");
    }
    return true;
  }

  void PlaceLegend() {
    const LegendSize size = SizeOfLegend(figure_, paper_, canvas_, layout_.unit);
    if (size.rows == 0) return;
    const auto corner = figure_.legendOutside ? std::nullopt : FreeCorner(figure_, layout_, size);
    if (corner) {
      layout_.legend = LegendAt(*corner, figure_, size, canvas_, layout_.unit);
      return;
    }
    const double gap = Units(2 * kGap);
    const bool beside = size.width < 0.4 * paper_.width;
    LayAxes(beside ? size.width + gap : 0, beside ? 0 : size.height + gap);
    const PaperPoint at =
        beside ? PaperPoint{paper_.Right() - Units(kMargin) - size.width, layout_.frame.top}
               : PaperPoint{layout_.frame.Centre().x - size.width / 2,
                            paper_.Bottom() - Units(kMargin) - size.height};
    layout_.legend = LegendAt(at, figure_, size, canvas_, layout_.unit);
  }

  void WriteLabels() {
    const PaperArea& frame = layout_.frame;
    const double under = frame.Bottom() + Units(kTickLength + kGap) + canvas_.Ascent();
    for (const auto& [at, text] : layout_.x.ticks.ticks)
      layout_.texts.push_back({{layout_.x.ToPaper(at) - canvas_.WidthOf(text) / 2, under}, text});
    const double end = frame.left - Units(kTickLength + kGap);
    const double lower = (canvas_.Ascent() - canvas_.Descent()) / 2;
    for (const auto& [at, text] : layout_.y.ticks.ticks)
      layout_.texts.push_back({{end - canvas_.WidthOf(text), layout_.y.ToPaper(at) + lower}, text});
    std::erase_if(layout_.texts, [](const LaidText& laid) { return laid.text.empty(); });
  }

  void WriteTitles() {
    const PaperArea& frame = layout_.frame;
    const double under = frame.Bottom() + Units(kTickLength + 2 * kGap) + line_ + canvas_.Ascent();
    layout_.texts.push_back(
        {{frame.Centre().x - canvas_.WidthOf(figure_.x.title) / 2, under}, figure_.x.title});
    const double lower = frame.Centre().y + canvas_.WidthOf(figure_.y.title) / 2;
    layout_.texts.push_back(
        {{paper_.left + Units(kMargin) + canvas_.Ascent(), lower}, figure_.y.title, true});
    double base = paper_.top + Units(kMargin) + titleAscent_;
    for (std::size_t i = 0; i < titleLines_.size(); ++i, base += titleLine_) {
      const double most = paper_.Right() - Units(kMargin) - titleWidths_[i];
      const double left = std::min(frame.Centre().x - titleWidths_[i] / 2, most);
      layout_.title.push_back(
          {{std::max(left, paper_.left + Units(kMargin)), base}, titleLines_[i]});
    }
  }

  const Figure& figure_;
  const PaperArea& paper_;
  ChartCanvas& canvas_;
  FigureLayout layout_;
  std::vector<std::string> titleLines_;
  std::vector<double> titleWidths_;
  double line_ = 0, titleLine_ = 0, titleAscent_ = 0, labelsWidth_ = 0;
};

}  // namespace

double LaidAxis::ToPaper(double value) const {
  const double from = Logarithm(ticks.range.from, logarithmic);
  const double to = Logarithm(ticks.range.to, logarithmic);
  return first + (Logarithm(value, logarithmic) - from) / (to - from) * (last - first);
}

double LaidAxis::FromPaper(double place) const {
  const double from = Logarithm(ticks.range.from, logarithmic);
  const double to = Logarithm(ticks.range.to, logarithmic);
  const double value = from + (place - first) / (last - first) * (to - from);
  return logarithmic ? std::pow(10.0, value) : value;
}

FigureLayout LayOut(const Figure& figure, const PaperArea& paper, ChartCanvas& canvas,
                    const ChartStyle& style) {
  return Layout(figure, paper, canvas, style).Made();
}

}  // namespace velmora

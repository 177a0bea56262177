// A chart canvas that only notes what is drawn on it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "charts/ChartCanvas.h"

namespace velmora::test {

/// Its letters are half as wide as high.
class NotingCanvas : public ChartCanvas {
 public:
  struct Text {
    PaperPoint start;
    std::string text;
  };
  std::vector<PaperLine> grid;  // dotted
  std::vector<PaperLine> ticks;
  std::vector<Text> texts;
  std::vector<PaperPoint> curve;
  std::vector<PaperPoint> markers;

  void OpenPaper(const PaperArea&) override {}
  void ClosePaper() override {}
  void SetFontHeight(double height) override { height_ = height; }
  void SetTitleFontHeight(double height) override { height_ = height; }
  double FontHeight() const override { return height_; }
  double Ascent() const override { return 0.8 * height_; }
  double Descent() const override { return 0.2 * height_; }
  double WidthOf(std::string_view text) const override {
    return 0.5 * height_ * static_cast<double>(text.size());
  }
  void Write(const PaperPoint& start, std::string_view text) override {
    texts.push_back({start, std::string(text)});
  }
  void WriteUpwards(const PaperPoint& start, std::string_view text) override { Write(start, text); }
  void DrawLines(std::span<const PaperLine> lines, const Stroke& stroke) override {
    auto& noted = stroke.kind == LineKind::Dotted ? grid : ticks;
    noted.insert(noted.end(), lines.begin(), lines.end());
  }
  void DrawCurve(std::span<const PaperPoint> points, const Stroke&) override {
    curve.insert(curve.end(), points.begin(), points.end());
  }
  void DrawDots(std::span<const PaperPoint>, double, Ink) override {}
  void DrawMarkers(std::string_view, std::span<const PaperPoint> centres, double, Ink,
                   double) override {
    markers.insert(markers.end(), centres.begin(), centres.end());
  }

 private:
  double height_ = 1;
};

}  // namespace velmora::test

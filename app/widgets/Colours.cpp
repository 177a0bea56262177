#include "app/widgets/Colours.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace velmora {
namespace {

constexpr int kMiddleLightness = 128;
constexpr int kNearlyBlack = 24;  // lightness of a ground on which no darker edge is seen
constexpr int kLighter = 170;     // percent
constexpr qreal kCorner = 2;      // px
constexpr qreal kCaptionGap = 3;  // px

class ClearEdges : public QProxyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (HasEdge(element) && option->palette.window().color().lightness() < kNearlyBlack)
      DrawEdge(element, *option, *painter);
  }

 private:
  static bool HasEdge(PrimitiveElement element) {
    switch (element) {
      case PE_Frame:
      case PE_FrameGroupBox:
      case PE_FrameLineEdit:
      case PE_IndicatorCheckBox:
      case PE_IndicatorRadioButton:
      case PE_PanelButtonCommand:
      case PE_PanelButtonTool:
        return true;
      default:
        return false;
    }
  }

  static void DrawEdge(PrimitiveElement element, const QStyleOption& option, QPainter& painter) {
    constexpr qreal kHalfPixel = 0.5;
    QRectF edge = QRectF(option.rect).adjusted(kHalfPixel, kHalfPixel, -kHalfPixel, -kHalfPixel);
    // A group's caption stands above its frame.
    if (element == PE_FrameGroupBox)
      edge.setTop(edge.top() + option.fontMetrics.height() + kCaptionGap);
    const bool focus = (option.state & State_HasFocus) != 0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(option.palette.color(focus ? QPalette::Highlight : QPalette::WindowText));
    painter.setBrush(Qt::NoBrush);
    if (element == PE_IndicatorRadioButton)
      painter.drawEllipse(edge);
    else
      painter.drawRoundedRect(edge, kCorner, kCorner);
    painter.restore();
  }
};

}  // namespace

bool OnDark(QPalette::ColorRole ground) {
  return QGuiApplication::palette().color(ground).lightness() < kMiddleLightness;
}

QColor Readable(const QColor& colour, QPalette::ColorRole ground) {
  return OnDark(ground) ? colour.lighter(kLighter) : colour;
}

QStyle* NewClearEdges() {
  return new ClearEdges;
}

}  // namespace velmora

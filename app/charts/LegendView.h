// The legend: which marker and colour belong to which experiment.
#pragma once

#include <QFrame>
#include <QPoint>
#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "charts/ChartContent.h"

class QGridLayout;
class QLabel;

namespace velmora {

/// More rows than these a legend does not list.
inline constexpr std::size_t kMostLegendRows = 45;

/// A small box with a heading and one row for each experiment: marker picture, colour sample,
/// number; many rows stand in columns, "..." in place of more than 45. The pictures are the bitmaps
/// below `imageFolder` (Imagens_Marcador, Imagens_Cores), or drawn where one is missing. Can be
/// dragged inside its parent where it stands in no layout.
class LegendView : public QFrame {
  Q_OBJECT

 public:
  LegendView(QString imageFolder, QWidget* parent = nullptr);

  /// The heading, where the string table captions it by its name.
  QLabel& Heading() const { return *heading_; }
  /// A word before the number of each of the rows that are set from now on.
  void SetRowWord(const QString& word) { rowWord_ = word; }
  void SetRows(const std::vector<LegendRow>& rows);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QPixmap Picture(const QString& file, int size) const;
  /// In the display's own pixels, and a picture of that size shown at its size on the window.
  int PictureSize() const;
  QPixmap Sharp(QPixmap picture) const;
  QPixmap MarkerPicture(const std::string& marker) const;
  QPixmap ColourSample(const LegendRow& row) const;

  QString imageFolder_;
  QString rowWord_;
  QLabel* heading_;
  QGridLayout* rows_;
  QPoint grabbedAt_;
};

}  // namespace velmora

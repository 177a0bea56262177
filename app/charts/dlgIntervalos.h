// The dialog that asks for a range of time.
#pragma once

#include <QDialog>
#include <optional>
#include <string>

#include "app/widgets/Dialogs.h"
#include "charts/AxisScaling.h"
#include "charts/ChartContent.h"
#include "session/Session.h"

class QLineEdit;

namespace velmora {

/// Opens with the range that is shown. OK closes it only where the typed range passes the checks;
/// what is refused is told and its box chosen.
class dlgIntervalos : public QDialog {
  Q_OBJECT

 public:
  /// `measured` bounds what times can be typed. `variable` is the name of the upright axis, whose
  /// `bounds` may be left to the data.
  dlgIntervalos(const Session& session, Dialogs& dialogs, const TimeInterval& measured,
                const TimeInterval& shown, const std::string& variable, const TypedInterval& bounds,
                QWidget* parent = nullptr);

  /// The confirmed range.
  const TimeInterval& Interval() const { return interval_; }
  /// The confirmed bounds of the upright axis; nothing where a box is empty.
  const TypedInterval& Bounds() const { return bounds_; }

 private:
  void Build(const std::string& variable);
  void ShowInterval();
  void Confirm();
  /// The bounds as typed; nothing where they are refused, which is told.
  std::optional<TypedInterval> ReadBounds();

  const Session& session_;
  Dialogs& dialogs_;
  TimeInterval measured_;
  TimeInterval interval_;
  TypedInterval bounds_;
  QLineEdit* txtMinT_ = nullptr;
  QLineEdit* txtMaxT_ = nullptr;
  QLineEdit* txtMinV_ = nullptr;
  QLineEdit* txtMaxV_ = nullptr;
};

}  // namespace velmora

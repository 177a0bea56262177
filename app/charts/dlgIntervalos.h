// The dialog that asks for a range of time.
#pragma once

#include <QDialog>

#include "app/widgets/Dialogs.h"
#include "charts/AxisScaling.h"
#include "session/Session.h"

class QLineEdit;

namespace velmora {

/// Opens with the range that is shown. OK closes it only where the typed range passes the checks;
/// what is refused is told and its box chosen.
class dlgIntervalos : public QDialog {
  Q_OBJECT

 public:
  /// `measured` bounds what can be typed.
  dlgIntervalos(const Session& session, Dialogs& dialogs, const TimeInterval& measured,
                const TimeInterval& shown, QWidget* parent = nullptr);

  /// The confirmed range.
  const TimeInterval& Interval() const { return interval_; }

 private:
  void Build();
  void ShowInterval();
  void Confirm();

  const Session& session_;
  Dialogs& dialogs_;
  TimeInterval measured_;
  TimeInterval interval_;
  QLineEdit* txtMinT_ = nullptr;
  QLineEdit* txtMaxT_ = nullptr;
};

}  // namespace velmora

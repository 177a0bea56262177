// How sure the values of a fit are: profiles and correlations as pictures.
#pragma once

#include <QDialog>
#include <atomic>
#include <memory>

#include "inference/Intervals.h"
#include "report/Correlations.h"
#include "session/Session.h"

class QGridLayout;
class QLabel;
class QProgressBar;
class QThread;

namespace velmora {

class CorrelationView;

/// Works on a thread of its own from when it is made; closing it ends that.
class frmCerteza : public QDialog {
  Q_OBJECT

 public:
  /// Of `run`, which has a result.
  frmCerteza(const Session& session, std::shared_ptr<const FinishedRun> run,
             QWidget* parent = nullptr);
  ~frmCerteza() override;

 private:
  void Build();
  QWidget* BuildProfiles();
  QWidget* BuildCorrelations();
  void Start();
  void ShowFound();
  void ShowProfiles();

  const Session& session_;
  const std::shared_ptr<const FinishedRun> run_;
  QProgressBar* progress_ = nullptr;
  QGridLayout* profiles_ = nullptr;
  CorrelationView* correlations_ = nullptr;
  QLabel* together_ = nullptr;
  QLabel* intervalTexts_ = nullptr;
  std::atomic<bool> stop_ = false;
  QThread* thread_ = nullptr;
  Intervals found_;  // the thread's until it has finished
  Correlations foundTogether_;
};

}  // namespace velmora

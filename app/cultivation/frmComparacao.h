// All models fitted to the same data, ranked, to take one over.
#pragma once

#include <QDialog>
#include <atomic>
#include <memory>

#include "inference/Comparison.h"
#include "session/Session.h"

class QLabel;
class QProgressBar;
class QTableWidget;
class QThread;

namespace velmora {

/// Compares on threads of its own from when it is made; closing it ends that.
class frmComparacao : public QDialog {
  Q_OBJECT

 public:
  frmComparacao(const Session& session, QWidget* parent = nullptr);
  ~frmComparacao() override;

 signals:
  /// The user wants this model, with what was found for it.
  void ModelTaken(const velmora::ComparedModel& model);

 private:
  class Watch;

  void Build();
  void Start();
  void ShowProgress(int done, int permille);
  void ShowComparison();

  const Session& session_;
  const std::vector<Experiment> experiments_;
  const CultivationConditions conditions_;
  QProgressBar* progress_ = nullptr;
  QTableWidget* table_ = nullptr;
  QLabel* remarks_ = nullptr;
  std::unique_ptr<Watch> watch_;
  QThread* thread_ = nullptr;
  Comparison comparison_;  // the thread's until it has finished
};

}  // namespace velmora

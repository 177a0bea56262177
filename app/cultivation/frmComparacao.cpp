#include "app/cultivation/frmComparacao.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>
#include <QThread>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "inference/ComparisonTexts.h"

namespace velmora {
namespace {

constexpr QSize kUsualSize(820, 560);
constexpr int kWhole = 1000;  // of the progress

std::vector<const Model*> AllModels() {
  std::vector<const Model*> models;
  for (const Model& model : kModels) models.push_back(&model);
  return models;
}

}  // namespace

/// Hands the comparison's reports, which come from its threads, over to the window's.
class frmComparacao::Watch : public ComparisonObserver {
 public:
  explicit Watch(frmComparacao& window) : window_(window) {}

  void Stop() { stop_ = true; }
  bool StopRequested() override { return stop_; }
  void Report(std::size_t done, double share) override {
    QMetaObject::invokeMethod(
        &window_,
        [&window = window_, models = static_cast<int>(done),
         permille = static_cast<int>(share * kWhole)] { window.ShowProgress(models, permille); },
        Qt::QueuedConnection);
  }

 private:
  frmComparacao& window_;
  std::atomic<bool> stop_ = false;
};

frmComparacao::frmComparacao(const Session& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      experiments_(session.lists.Experiments()),
      conditions_(session.conditions),
      watch_(std::make_unique<Watch>(*this)) {
  setObjectName(QStringLiteral("frmComparacao"));
  Build();
  Start();
}

frmComparacao::~frmComparacao() {
  watch_->Stop();
  thread_->wait();
  delete thread_;
}

void frmComparacao::Build() {
  const Language language = session_.language;
  setWindowTitle(Caption(TextId::CompareModels, language).remove(u'&'));
  progress_ = Named<QProgressBar>("progressoModelos", this);
  progress_->setRange(0, kWhole);
  table_ = Named<QTableWidget>("tabelaModelos", this);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setToolTip(Caption(TextId::TakeModelOver, language));
  table_->setAccessibleName(windowTitle());
  table_->verticalHeader()->setDefaultSectionSize(table_->verticalHeader()->minimumSectionSize());
  remarks_ = Named<QLabel>("lblObservacoes", this);
  remarks_->setWordWrap(true);
  remarks_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  remarks_->hide();
  auto* const buttons = new QDialogButtonBox(this);
  connect(buttons->addButton(Caption(TextId::CloseButton, language), QDialogButtonBox::RejectRole),
          &QPushButton::clicked, this, &QDialog::close);
  connect(table_, &QTableWidget::cellActivated, this, [this](int row, int) {
    emit ModelTaken(comparison_.Ranked()[static_cast<std::size_t>(row)]);
  });
  auto* const all = new QVBoxLayout(this);
  all->setSpacing(kSpacing);
  all->addWidget(progress_);
  all->addWidget(table_, 1);
  all->addWidget(remarks_);
  all->addWidget(buttons);
  FitScreen(*this, kUsualSize);
}

void frmComparacao::Start() {
  const auto threads = static_cast<unsigned>(std::max(QThread::idealThreadCount(), 1));
  const ComparisonSettings settings{session_.settings.IU, threads};
  thread_ = QThread::create([this, settings] {
    comparison_ = CompareModels(experiments_, conditions_, AllModels(), settings, *watch_);
  });
  connect(thread_, &QThread::finished, this, &frmComparacao::ShowComparison);
  thread_->start();
}

void frmComparacao::ShowProgress(int done, int permille) {
  progress_->setValue(permille);
  progress_->setFormat(
      QString::fromStdString(Filled(TextId::ComparisonLine, session_.language,
                                    {std::to_string(done), std::to_string(kModels.size())})));
}

void frmComparacao::ShowComparison() {
  const TextStyle style{session_.language, session_.separator};
  const auto cells = ComparisonCells(comparison_, style);
  progress_->hide();
  table_->setColumnCount(static_cast<int>(cells.front().size()));
  table_->setRowCount(static_cast<int>(cells.size()) - 1);
  for (std::size_t row = 0; row < cells.size(); ++row)
    for (std::size_t column = 0; column < cells[row].size(); ++column) {
      auto* const item = new QTableWidgetItem(QString::fromStdString(cells[row][column]));
      if (column > 0) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      if (row == 0)
        table_->setHorizontalHeaderItem(static_cast<int>(column), item);
      else
        table_->setItem(static_cast<int>(row) - 1, static_cast<int>(column), item);
    }
  table_->resizeColumnsToContents();
  QStringList lines{Caption(TextId::TakeModelOver, session_.language)};
  for (const std::string& remark : ComparisonRemarks(comparison_, experiments_, style))
    lines << QString::fromStdString(remark);
  remarks_->setText(lines.join(u'\n'));
  remarks_->show();
}

}  // namespace velmora

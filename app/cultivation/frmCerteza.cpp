#include "app/cultivation/frmCerteza.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QTabWidget>
#include <QThread>
#include <QVBoxLayout>

#include "app/charts/ChartView.h"
#include "app/cultivation/CorrelationView.h"
#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"
#include "cultivation/OpenedConditions.h"
#include "estimation/Workers.h"
#include "kinetics/ArithmeticFault.h"
#include "report/ProfileFigures.h"

namespace velmora {
namespace {

constexpr QSize kUsualSize(860, 620);
constexpr int kColumns = 2;
constexpr QSize kLeastChart(300, 220);

}  // namespace

frmCerteza::frmCerteza(const Session& session, std::shared_ptr<const FinishedRun> run,
                       QWidget* parent)
    : QDialog(parent, Qt::Window), session_(session), run_(std::move(run)) {
  setObjectName(QStringLiteral("frmCerteza"));
  Build();
  Start();
}

frmCerteza::~frmCerteza() {
  stop_ = true;
  thread_->wait();
  delete thread_;
}

void frmCerteza::Build() {
  const Language language = session_.language;
  setWindowTitle(Caption(TextId::HowSure, language).remove(u'&'));
  progress_ = Named<QProgressBar>("progressoPerfis", this);
  progress_->setRange(0, 0);
  progress_->setAccessibleName(windowTitle());
  auto* const pages = Named<QTabWidget>("paginas", this);
  pages->setAccessibleName(windowTitle());
  pages->addTab(BuildProfiles(), Caption(TextId::TabProfiles, language));
  pages->addTab(BuildCorrelations(), Caption(TextId::TabCorrelations, language));
  auto* const buttons = new QDialogButtonBox(this);
  connect(buttons->addButton(Caption(TextId::CloseButton, language), QDialogButtonBox::RejectRole),
          &QPushButton::clicked, this, &QDialog::close);
  auto* const all = new QVBoxLayout(this);
  all->setSpacing(kSpacing);
  all->addWidget(progress_);
  all->addWidget(pages, 1);
  all->addWidget(buttons);
  FitScreen(*this, kUsualSize);
}

QWidget* frmCerteza::BuildProfiles() {
  auto* const page = new QWidget;
  profiles_ = new QGridLayout;
  profiles_->setSpacing(kSpacing);
  intervalTexts_ = Named<QLabel>("lblIntervalos", page);
  intervalTexts_->setWordWrap(true);
  intervalTexts_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  intervalTexts_->hide();
  auto* const how = Named<QLabel>("lblPerfis", page);
  how->setWordWrap(true);
  how->setText(Caption(TextId::ProfilesRead, session_.language));
  auto* const column = new QVBoxLayout(page);
  column->addWidget(how);
  column->addLayout(profiles_, 1);
  column->addWidget(intervalTexts_);
  auto* const scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setWidget(page);
  scroll->setAccessibleName(Caption(TextId::TabProfiles, session_.language));
  return scroll;
}

QWidget* frmCerteza::BuildCorrelations() {
  auto* const page = new QWidget;
  correlations_ = new CorrelationView(page);
  correlations_->setAccessibleName(Caption(TextId::TabCorrelations, session_.language));
  together_ = Named<QLabel>("lblCorrelacoes", page);
  together_->setWordWrap(true);
  auto* const column = new QVBoxLayout(page);
  column->addWidget(together_);
  column->addWidget(correlations_, 1);
  return page;
}

void frmCerteza::Start() {
  thread_ = QThread::create([this] {
    const auto& [problem, result] = std::tie(run_->outcome.problem, run_->outcome.result);
    try {
      foundTogether_ = CorrelationsAt(problem, result.best);
      found_ = ProfileIntervals(problem, result.best, AllCores(), [this] { return stop_.load(); });
    } catch (const ArithmeticFault&) {
      // What could be computed is shown.
    }
  });
  connect(thread_, &QThread::finished, this, &frmCerteza::ShowFound);
  thread_->start();
}

void frmCerteza::ShowFound() {
  progress_->hide();
  const bool known = !foundTogether_.parameters.empty();
  together_->setText(
      Caption(known ? TextId::CorrelationsRead : TextId::NoCorrelations, session_.language));
  correlations_->SetCorrelations(foundTogether_, session_.separator);
  correlations_->setVisible(known);
  if (!found_.of.empty()) ShowProfiles();
}

void frmCerteza::ShowProfiles() {
  const TextStyle style{session_.language, session_.separator};
  const auto& [problem, result] = std::tie(run_->outcome.problem, run_->outcome.result);
  const Model* const model = RecognisedModel(run_->conditions.At(1), problem.variables);
  int place = 0;
  for (Figure& figure : ProfileFigures(found_, problem.variables, result, model, style)) {
    auto* const chart = new ChartView(this);
    chart->setObjectName(MemberName("picPerfil", place));
    chart->setAccessibleName(QString::fromStdString(figure.x.title));
    chart->setFocusPolicy(Qt::TabFocus);
    chart->setMinimumSize(kLeastChart);
    ChartContent content;
    content.figure = std::move(figure);
    chart->SetContent(std::move(content));
    profiles_->addWidget(chart, place / kColumns, place % kColumns);
    ++place;
  }
  intervalTexts_->setText(
      QString::fromStdString(Worded(found_, problem.variables, false, style)).trimmed());
  intervalTexts_->show();
}

}  // namespace velmora

#include "app/shell/HelpDocument.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "app/widgets/Idiomas.h"
#include "app/widgets/PanelParts.h"

namespace velmora {
namespace {

constexpr QSize kUsualSize(820, 720);

/// Shows the guide's page in a window of the program's own.
void ShowPage(const QString& path, Language language, Dialogs& dialogs, QWidget* owner) {
  QFile page(path);
  if (!page.open(QIODevice::ReadOnly)) {
    const std::string name = QFileInfo(path).completeBaseName().toStdString();
    dialogs.Show(owner, Attention({{TextId::GuideMissing, {name}}}));
    return;
  }
  auto* const window = new QDialog(owner, Qt::Window);
  window->setObjectName(QStringLiteral("frmGuia"));
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->setWindowTitle(Caption(TextId::GuideWindow, language));
  auto* const text = Named<QTextBrowser>("txtGuia", window);
  text->setAccessibleName(window->windowTitle());
  // Black on white, as the pictures are.
  QPalette paper = text->palette();
  paper.setColor(QPalette::Base, Qt::white);
  paper.setColor(QPalette::Text, Qt::black);
  text->setPalette(paper);
  text->setHtml(QString::fromUtf8(page.readAll()));
  auto* const layout = new QVBoxLayout(window);
  layout->setContentsMargins({});
  layout->addWidget(text);
  FitScreen(*window, kUsualSize);
  window->show();
}

}  // namespace

QString GuideName(Language language) {
  return language == Language::English ? QStringLiteral("HelpFile_Velmora")
                                       : QStringLiteral("ArquivoDeAjuda_Velmora");
}

void OpenGuide(const QString& folder, Language language, Dialogs& dialogs, QWidget* owner) {
  const QString path = QDir(folder).filePath(GuideName(language));
  const QString page = path + QStringLiteral(".html");
  const QString document = path + QStringLiteral(".pdf");
  if (!QFileInfo(document).isFile()) return ShowPage(page, language, dialogs, owner);
  // Without a parent: a viewer that is still open outlives the program.
  auto* const viewer = new QProcess;
  viewer->setProgram(QStringLiteral("xdg-open"));
  viewer->setArguments({document});
  // A viewer's complaints are not the program's.
  viewer->setStandardOutputFile(QProcess::nullDevice());
  viewer->setStandardErrorFile(QProcess::nullDevice());
  const auto instead = [page, language, &dialogs, window = QPointer<QWidget>(owner)] {
    if (window) ShowPage(page, language, dialogs, window);
  };
  QObject::connect(viewer, &QProcess::finished, owner, [instead](int code, QProcess::ExitStatus) {
    if (code != 0) instead();
  });
  QObject::connect(viewer, &QProcess::errorOccurred, owner,
                   [instead](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) instead();
                   });
  QObject::connect(viewer, &QProcess::finished, viewer, &QObject::deleteLater);
  QObject::connect(viewer, &QProcess::errorOccurred, viewer, &QObject::deleteLater);
  viewer->start();
}

}  // namespace velmora

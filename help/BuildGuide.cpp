// Makes the user's guide.
// Use: velmora-guide GUIDE.html en|pt EXAMPLES OUT.pdf OUT.html

#include <QApplication>
#include <QFile>
#include <cstdio>
#include <exception>

#include "help/GuideDocument.h"
#include "help/GuidePictures.h"
#include "help/GuideText.h"

namespace {

bool Build(const QStringList& words) {
  QFile source(words[1]);
  if (!source.open(QIODevice::ReadOnly)) return false;
  const bool english = words[2] == QStringLiteral("en");
  const auto language = english ? velmora::Language::English : velmora::Language::Portuguese;
  const std::string html = velmora::FilledGuide(source.readAll().toStdString(), language);
  const QString title = english ? QStringLiteral("Velmora: user's guide")
                                : QStringLiteral("Velmora: guia do usuário");
  const auto pictures = velmora::TakePictures(language, words[3]);
  const QString text = QString::fromStdString(html);
  return velmora::PrintGuide(text, pictures, title, words[4]) &&
         velmora::WriteGuidePage(text, pictures, title, words[5]);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QStringList words = QApplication::arguments();
  if (words.size() != 6) {
    std::fputs("use: velmora-guide GUIDE.html en|pt EXAMPLES OUT.pdf OUT.html\n", stderr);
    return 2;
  }
  try {
    if (Build(words)) return 0;
    std::fputs("velmora-guide: a file cannot be read or written\n", stderr);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "velmora-guide: %s: %s\n", argv[1], error.what());
  }
  return 3;
}

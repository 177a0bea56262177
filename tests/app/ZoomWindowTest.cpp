// The enlarged chart and its dialogs, by keys and mouse; pictures read at computed points.
#include <QHelpEvent>
#include <QImage>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>
#include <QTextDocumentFragment>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include "app/charts/ChartView.h"
#include "app/charts/frmZoom.h"
#include "app/widgets/Idiomas.h"
#include "charts/ChartContent.h"
#include "language/Numbers.h"
#include "tests/data/FileTesting.h"
#include "tests/support/Windows.h"

namespace velmora {
namespace {

/// A printer that is a file; without a name there is none.
struct FileDesk : PrintDesk {
  explicit FileDesk(QString name) : file(std::move(name)) {}
  bool HasPrinter() const override { return !file.isEmpty(); }
  bool Choose(QPrinter& printer, QWidget*) override {
    printer.setOutputFileName(file);
    return true;
  }
  void Preview(QPrinter& printer, QWidget*, const std::function<void(QPrinter*)>& paint) override {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    paint(&printer);
  }
  QString file;
};

/// Two experiments, hours 2 to 8 in blue and 4 to 10 in red, open on their Cs in a window.
class Zoom : public testing::Test {
 protected:
  void SetUp() override {
    session.separator = ',';
    session.language = Language::English;
    session.gridLines = false;
    session.lists.Append({1, "", {2, 8}, {1, 2}, {60, 30}, {0, 0}, 8, true},
                         {"Triang1", 1, 1, true});
    session.lists.Append({2, "", {4, 10}, {1, 2}, {50, 20}, {0, 0}, 10, true},
                         {"QuadVazio", 2, 1, true});
    Open({});
  }

  void Open(const QString& printer) {
    window = std::make_unique<frmZoom>(session, dialogs, PlotVariable::Cs, nullptr,
                                       std::make_unique<FileDesk>(printer));
    test::ShowActive(*window);
  }

  template <typename Kind = QWidget>
  Kind* Child(const char* name) {
    return test::Child<Kind>(*window, name);
  }
  void Click(const char* name) { test::Click(*window, name); }
  ChartView& Chart() { return *Child<ChartView>("picZoom"); }

  /// Clicks the button; in the dialog that it opens types the texts, Tab between them, and ends
  /// with `key`. What is still open after that is cancelled.
  void FillIn(const char* button, const QStringList& texts, Qt::Key key = Qt::Key_Return) {
    QTimer::singleShot(0, window.get(), [texts, key] {
      QPointer<QWidget> dialog = QApplication::activeModalWidget();
      ASSERT_TRUE(dialog != nullptr && QTest::qWaitForWindowActive(dialog));
      for (const QString& text : texts) {
        if (&text != &texts.front()) QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        // A window that is only becoming active selects no text at Tab.
        if (auto* const box = qobject_cast<QLineEdit*>(dialog->focusWidget())) box->selectAll();
        QTest::keyClicks(dialog->focusWidget(), text);
      }
      QTest::keyClick(dialog->focusWidget(), key);
      if (dialog->isVisible()) QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Click(button);
  }

  QPoint Place(double time, double Cs) {
    return ToPaper(Chart().Content().scale, Chart().rect(), {time, Cs}).toPoint();
  }
  QImage Copied() {
    Click("cmdCopiar");
    return QApplication::clipboard()->image();
  }
  QString Path(const char* name) { return QString::fromStdString(folder / name); }

  Session session;
  ScriptedDialogs dialogs{session};
  std::unique_ptr<frmZoom> window;
  TemporaryFolder folder;
};

TEST_F(Zoom, TitleAndGridLinesComeAndGoTwice) {
  const QImage bare = Copied();
  FillIn("cmdInsTitulo", {u"x"_qs}, Qt::Key_Escape);
  EXPECT_EQ(Copied(), bare);
  for (int time = 0; time < 2; ++time) {
    FillIn("cmdInsTitulo", {u"Batelada 3"_qs});
    EXPECT_EQ(Chart().Content().title, "Batelada 3");
    EXPECT_NE(Copied(), bare);
    Click("cmdInsTitulo");
    EXPECT_EQ(Copied(), bare);
    Click("cmdInsLinhas");
    EXPECT_NE(Copied(), bare);
    EXPECT_FALSE(session.gridLines) << "the window's grid lines are its own";
    Click("cmdInsLinhas");
    EXPECT_EQ(Copied(), bare);
  }
}

TEST_F(Zoom, LegendIsDraggedAndCopiedAsShown) {
  const QImage bare = Copied();
  Click("cmdInsLegenda");
  QWidget* const legend = Child("picLegenda");
  QTest::mousePress(legend, Qt::LeftButton, {}, {3, 3});
  QTest::mouseMove(legend, QPoint(3, 3) - QPoint(200, -150));
  QTest::mouseRelease(legend, Qt::LeftButton, {}, {3, 3});
  QWidget* const swatch = Child("Image2(1)");
  const QPoint at = swatch->mapTo(&Chart(), swatch->rect().center());
  EXPECT_EQ(Copied().pixelColor(at), QColor(Qt::red));
  const QSize usual = window->size();
  window->resize(420, 320);
  QTest::qWait(0);
  EXPECT_TRUE(Chart().rect().contains(legend->geometry()));
  window->resize(usual);
  Click("cmdInsLegenda");
  EXPECT_EQ(Copied(), bare);
}

TEST_F(Zoom, LegendStandsWhereNoPointsAre) {
  for (const std::vector<double>& Cs : {std::vector{5.0, 10.0, 55.0, 60.0}, {60, 5, 55, 60}}) {
    session.lists = {};
    session.lists.Append({1, "", {0, 2, 8, 10}, {1, 2, 3, 4}, Cs, {0, 0, 0, 0}, 10, true},
                         {"Triang1", 1, 1, true});
    Open({});
    Click("cmdInsLegenda");
    for (std::size_t k = 0; k < Cs.size(); ++k) {
      const QPoint at = Chart().PlaceOf({session.lists.At(1).time[k], Cs[k]}).toPoint();
      EXPECT_FALSE(Child("picLegenda")->geometry().contains(at)) << k << " of " << Cs[0];
    }
  }
}

TEST(IntervalCheck, RefusesInItsOrder) {
  constexpr auto kMinimum = IntervalBox::Minimum, kMaximum = IntervalBox::Maximum;
  struct Row {
    TypedInterval typed;
    std::optional<TextId> text;  // none where it passes
    IntervalBox failed = kMinimum;
  };
  for (const Row& row : {Row{{1, 11}, TextId::TimeTooLarge, kMaximum},
                         {{12, 10.5}, TextId::TimeTooLarge, kMaximum},
                         {{1, 0.5}, TextId::TimeTooSmall},
                         {{6, 5}, TextId::MinimumAboveMaximum},
                         {{std::nullopt, 11}, TextId::CheckBounds},
                         {{1, std::nullopt}, TextId::CheckBounds, kMaximum},
                         {{2, 10}, std::nullopt},
                         {{5, 5}, std::nullopt}}) {
    const CheckedInterval checked = CheckInterval(row.typed, {2, 10});
    EXPECT_EQ(checked.failed, row.failed);
    ASSERT_EQ(checked.refusal.has_value(), row.text.has_value());
    if (row.text) {
      EXPECT_EQ(checked.refusal->pieces.front(), *row.text);
    }
  }
}

TEST_F(Zoom, RangeIsRefusedOrDrawn) {
  const QImage whole = Copied();
  FillIn("cmdInsInterv", {u"2"_qs, u"10.5"_qs});
  EXPECT_EQ(dialogs.LastText(), Text(TextId::TimeTooLarge, Language::English));
  EXPECT_EQ(Copied(), whole) << "a refused range changes nothing";
  FillIn("cmdInsInterv", {u"3,5"_qs, u"8"_qs});
  EXPECT_EQ(dialogs.shown.size(), 1U);
  EXPECT_EQ(Chart().Content().scale.origin, 3.5);
  EXPECT_EQ(Copied().pixelColor(Place(8, 30)), QColor(Qt::blue));
  FillIn("cmdInsInterv", {u"5"_qs, u"6"_qs});  // between all points
  EXPECT_NE(Copied(), whole);
  FillIn("cmdInsInterv", {u"8"_qs, u"8"_qs});
  EXPECT_EQ(Copied().pixelColor(Place(8, 30)), QColor(Qt::blue));
}

TEST_F(Zoom, CoordinatesFollowThePressedLeftButtonOnly) {
  const auto shown = [&] {
    return (Child<QLabel>("lblX")->text() + u'|' + Child<QLabel>("lblY")->text()).toStdString();
  };
  QTest::mouseMove(&Chart(), Place(3, 20));
  EXPECT_EQ(shown(), "|");
  QTest::mousePress(&Chart(), Qt::LeftButton, {}, Place(3, 20));
  QTest::mouseMove(&Chart(), Place(6, 40));
  const PlotPoint at = FromPaper(Chart().Content().scale, Chart().rect(), Place(6, 40));
  EXPECT_EQ(shown(), Formatted(at.x, {0, 4}, ',') + " h|" + Formatted(at.y, {0, 4}, ',') + " g/L");
  QTest::mouseRelease(&Chart(), Qt::LeftButton, {}, Place(6, 40));
  const std::string last = shown();
  QTest::mouseMove(&Chart(), Place(2, 10));
  EXPECT_EQ(shown(), last);
}

TEST_F(Zoom, SavesABitmapOrSaysWhyNot) {
  dialogs.files = {QString(), u""_qs, Path(" .bmp"), Path("missing/chart.bmp"), Path("chart.bmp")};
  Click("cmdSalvar");
  EXPECT_TRUE(dialogs.filters.front().startsWith(u"Arquivos Textos (*.bmp);;"_qs));
  EXPECT_TRUE(dialogs.shown.empty()) << "cancelled";
  Click("cmdSalvar");
  Click("cmdSalvar");
  ASSERT_EQ(dialogs.shown.size(), 2U);
  for (const auto& [message, buttons] : dialogs.shown)
    EXPECT_EQ(message, (Message{{TextId::InvalidName}, TextId::Attention, Icon::Exclamation}));
  Click("cmdSalvar");
  EXPECT_EQ(dialogs.LastText(), Text(TextId::FileError, Language::English));
  EXPECT_TRUE(dialogs.details.back().contains(u"missing/chart.bmp"_qs));
  EXPECT_EQ(folder.Entries(), 0);
  Click("cmdSalvar");
  const QImage saved(Path("chart.bmp"), "BMP");
  EXPECT_EQ(saved.size(), Chart().size() * Chart().devicePixelRatio());
  EXPECT_EQ(saved.pixelColor(Place(2, 60)), QColor(Qt::blue));
  EXPECT_EQ(saved.pixelColor(Place(10, 20)), QColor(Qt::white)) << "an open square";
  EXPECT_EQ(saved.pixelColor(Place(10, 20) + QPoint(4, 0)), QColor(Qt::red));
}

/// The end of the name tells the format; the size is asked for, and its usual values are taken.
TEST_F(Zoom, SavesDrawingsAndSharpPictures) {
  dialogs.files = {Path("chart.gif"), Path("chart.svg"), Path("chart.PDF"), Path("chart.png")};
  Click("cmdSalvar");
  EXPECT_TRUE(dialogs.LastText().starts_with("The end of the name tells"));
  EXPECT_EQ(folder.Entries(), 0);
  Click("cmdPublicacao");
  for (int file = 0; file < 3; ++file) FillIn("cmdSalvar", {u""_qs});
  EXPECT_NE(BytesOf(folder / "chart.svg").find("<svg"), std::string::npos);
  EXPECT_TRUE(BytesOf(folder / "chart.PDF").starts_with("%PDF"));
  const QImage saved(Path("chart.png"));
  EXPECT_EQ(saved.width(), 1890) << "160 mm at 300 dpi";
  EXPECT_EQ(saved.dotsPerMeterX(), 11811);
  Click("cmdCopiar");
  const QMimeData* const copied = QApplication::clipboard()->mimeData();
  EXPECT_TRUE(copied->hasImage());
  EXPECT_TRUE(copied->data(u"image/svg+xml"_qs).contains("<svg"));
}

/// Blue and red are yielded to inks that show on white, with which the legend agrees.
TEST_F(Zoom, DrawsForPublicationAtTheSwitchOnly) {
  EXPECT_EQ(Copied().pixelColor(Place(2, 60)), QColor(Qt::blue));
  Click("cmdPublicacao");
  ASSERT_TRUE(Chart().Content().figure);
  EXPECT_TRUE(Chart().Content().figure->legend);
  EXPECT_EQ(Copied().pixelColor(Chart().PlaceOf({2, 60}).toPoint()), QColor(0x25, 0x37, 0xD7));
  EXPECT_TRUE(Child("picLegenda")->isHidden()) << "the figure holds its legend itself";
  Click("cmdPublicacao");
  EXPECT_FALSE(Chart().Content().figure);
  EXPECT_FALSE(Child("picLegenda")->isHidden());
}

TEST_F(Zoom, PartsAreChosenByRectangleWheelAndNumbers) {
  const QImage whole = Copied();
  QTest::mousePress(&Chart(), Qt::LeftButton, {}, Place(3, 20));
  QTest::mouseMove(&Chart(), Place(6, 40));
  QTest::mouseRelease(&Chart(), Qt::LeftButton, {}, Place(6, 40));
  ASSERT_TRUE(Chart().Content().figure);
  const ShownPart part = Chart().Shown();
  EXPECT_NEAR(part.times.from, 3, 0.1);
  EXPECT_NEAR(part.values.to, 40, 0.5);
  const QPointF at = Chart().PlaceOf({4, 30});
  QWheelEvent towards(at, Chart().mapToGlobal(at), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Chart(), &towards);
  EXPECT_NEAR(Chart().PlaceOf({4, 30}).x(), at.x(), 1) << "what is under the mouse stays there";
  EXPECT_NEAR(Chart().Shown().times.to - Chart().Shown().times.from, 3 / 1.25, 0.1);
  Click("cmdTudo");
  EXPECT_EQ(Copied(), whole);
  FillIn("cmdInsInterv", {u"2"_qs, u"10"_qs, u"50"_qs, u"10"_qs});
  EXPECT_TRUE(dialogs.LastText().starts_with("The lower bound must be less")) << dialogs.LastText();
  FillIn("cmdInsInterv", {u"2"_qs, u"10"_qs, u"-5"_qs, u"70"_qs});
  EXPECT_EQ(Chart().Shown().values, (ValueRange{-5, 70}));
  QTest::mouseDClick(&Chart(), Qt::LeftButton, {}, Place(6, 40));
  EXPECT_EQ(Copied(), whole);
}

TEST_F(Zoom, TellsTheValuesOfThePointUnderTheMouse) {
  session.lists.Replace(1, {1, "A < B", {2.5, 8}, {1, 2}, {60.25, 30}, {0, 0}, 8, true}, {});
  window->ShowSession();
  Click("cmdPublicacao");
  const QPoint at = Chart().PlaceOf({2.5, 60.25}).toPoint() + QPoint(2, -2);
  QHelpEvent rest(QEvent::ToolTip, at, Chart().mapToGlobal(at));
  QApplication::sendEvent(&Chart(), &rest);
  const QString told = QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
  for (const QString& part : {u"Exp. 1: A < B"_qs, u"t (h) = 2,5"_qs, u"Cs (g/L) = 60,25"_qs})
    EXPECT_TRUE(told.contains(part)) << told.toStdString();
}

TEST_F(Zoom, FollowsTheSessionInOtherViews) {
  session.curves[0].points = kModelPoints;
  for (std::size_t k = 0; k < 100; ++k)
    session.curves[0].time[k] = 2 + 6 * static_cast<double>(k) / 99, session.curves[0].Cs[k] = 40;
  window->ShowSession();
  Click("cmdResiduos");
  ASSERT_EQ(Chart().Content().figure->series[0].points.size(), 2U);
  EXPECT_NEAR(Chart().Content().figure->series[0].points[0].y, 20, 1e-9);
  EXPECT_FALSE(Child("cmdLogaritmo")->isEnabled());
  Click("cmdResiduos");
  Click("cmdLogaritmo");
  EXPECT_TRUE(Chart().Content().figure->y.logarithmic);
  EXPECT_EQ(window->windowTitle(), u"Zoom - Cs versus time"_qs);
  session.lists.Clear();
  window->ShowSession();
  EXPECT_EQ(Chart().Content().experiments.size(), 2U) << "there is nothing else to show";
}

TEST_F(Zoom, PrintsOrOffersAPdf) {
  dialogs.answers = {Answer::No, Answer::Yes};
  Click("cmdImprimir");
  EXPECT_TRUE(dialogs.LastText().starts_with("No printer is set up")) << dialogs.LastText();
  dialogs.files = {Path("sheet.pdf")};
  Click("cmdImprimir");
  EXPECT_TRUE(BytesOf(folder / "sheet.pdf").starts_with("%PDF"));
  Open(Path("printed.pdf"));
  Click("cmdImprimir");
  EXPECT_TRUE(BytesOf(folder / "printed.pdf").starts_with("%PDF"));
  Open(Path("preview.pdf"));
  Click("cmdVisualizar");
  EXPECT_TRUE(BytesOf(folder / "preview.pdf").starts_with("%PDF"));
  EXPECT_EQ(dialogs.shown.size(), 2U) << "a printed page needs no message";
  Open(Path("missing/printed.pdf"));
  dialogs.answers = {Answer::No};
  Click("cmdImprimir");
  EXPECT_TRUE(dialogs.LastText().starts_with("The chosen printer cannot")) << dialogs.LastText();
}

TEST_F(Zoom, PageKeepsProportionsWithTheLegendBelow) {
  ChartPage page{Chart().Content(), 2, u"Legend"_qs, {}, {{7, "QuadCheio", 2}}};
  page.chart.experiments[1].points.clear();  // red is the legend's alone
  QImage sheet(800, 800, QImage::Format_RGB32);
  sheet.fill(Qt::white);
  QPainter painter(&sheet);
  PaintPage(painter, page);
  painter.end();
  const QPoint blue = ToPaper(page.chart.scale, QRectF(0, 0, 800, 400), {2, 60}).toPoint();
  EXPECT_EQ(sheet.pixelColor(blue), QColor(Qt::blue));
  int firstRed = 0;
  const auto red = [&](int i) { return sheet.pixel(i % 800, i / 800) == 0xFFFF0000; };
  while (firstRed < 800 * 800 && !red(firstRed)) ++firstRed;
  EXPECT_TRUE(firstRed / 800 > 400 && firstRed / 800 < 460) << firstRed / 800;
}

TEST_F(Zoom, KeysLeadThroughItAndLanguagesChangeIt) {
  Child("cmdInsTitulo")->setFocus();
  for (const char* next :
       {"cmdInsLegenda", "cmdInsLinhas", "cmdInsInterv", "cmdCopiar", "cmdSalvar", "cmdImprimir",
        "cmdVisualizar", "cmdPublicacao", "cmdLogaritmo", "cmdResiduos", "cmdTudo", "cmdFechar"}) {
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window->focusWidget()->objectName(), QString::fromUtf8(next));
  }
  Idiomas(*window, Language::Portuguese);
  EXPECT_EQ(Child<QLabel>("lblLegenda")->text(), u"Legenda"_qs);
  EXPECT_EQ(Child("cmdFechar")->accessibleName(), u"Fechar janela"_qs);
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(Zoom, OpensTheClickedChartOrSaysThatItCannotBeSized) {
  QWidget owner;
  session.clickedChart = "picCp";  // all zero, which still has a time axis
  GraficoZoomSub(session, dialogs, &owner);
  QPointer<frmZoom> opened = owner.findChild<frmZoom*>();
  ASSERT_NE(opened, nullptr);
  session.lists.Clear();  // the window keeps what it shows
  QTest::mouseClick(opened->findChild<QToolButton*>(u"cmdInsLinhas"_qs), Qt::LeftButton);
  EXPECT_EQ(opened->findChild<ChartView*>()->Content().variable, PlotVariable::Cp);
  QTest::mouseClick(opened->findChild<QToolButton*>(u"cmdFechar"_qs), Qt::LeftButton);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(opened, nullptr);
  GraficoZoomSub(session, dialogs, &owner);
  EXPECT_EQ(dialogs.LastText(), "Erro ao dimensionar imagem. Abra novamente a janela de Zoom.");
  EXPECT_EQ(owner.findChild<frmZoom*>(), nullptr);
}

}  // namespace
}  // namespace velmora

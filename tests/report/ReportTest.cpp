#include <gtest/gtest.h>

#include <algorithm>

#include "charts/ChartDrawing.h"
#include "kinetics/Modelos.h"
#include "report/Relatorio.h"
#include "report/ReportCharts.h"

namespace velmora {
namespace {

/// A code point below 0x800 in UTF-8.
std::string Utf8(int code) {
  if (code < 0x80) return {static_cast<char>(code)};
  return {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
}

/// What a reader of rich text sees. Each paragraph is a line; cells are parted by "|" and their row
/// is a line.
class Reader {
 public:
  explicit Reader(const std::string& rtf) : rtf_(rtf) {
    while (at_ < rtf_.size()) Step();
    EXPECT_EQ(groups_, 0);
  }
  std::string text;
  std::vector<std::string> pictures;  // the bytes

 private:
  void Step() {
    const char c = rtf_[at_++];
    if (c == '\\') return Control();
    if (c == '{') return void(++groups_);
    if (c == '}') return EndGroup();
    if (c == '\r' || c == '\n') return;
    (inPicture_ ? hex_ : text) += c;
  }

  void EndGroup() {
    --groups_;
    if (!inPicture_) return;
    inPicture_ = false;
    std::string& bytes = pictures.emplace_back();
    for (std::size_t i = 0; i < hex_.size(); i += 2)
      bytes += static_cast<char>(std::stoi(hex_.substr(i, 2), nullptr, 16));
    hex_.clear();
  }

  void Control() {
    const char symbol = rtf_[at_];
    if (std::string("\\{}").find(symbol) != std::string::npos) {
      text += rtf_[at_++];
    } else if (symbol == '\'') {  // the letters of Latin-1 have the codes of Unicode
      text += Utf8(std::stoi(rtf_.substr(at_ + 1, 2), nullptr, 16));
      at_ += 3;
    } else {
      Word();
    }
  }

  void Word() {
    const std::size_t end = rtf_.find_first_not_of("abcdefghijklmnopqrstuvwxyz-0123456789", at_);
    const std::string word = rtf_.substr(at_, end - at_);
    at_ = end + (rtf_[end] == ' ' ? 1 : 0);
    if (word == "par" || word == "row" || word == "line") text += '\n';
    if (word == "cell") text += '|';
    if (word == "pict") inPicture_ = true;
    if (word.size() < 3 || word[0] != 'u' || word.find_first_not_of("0123456789", 1) < word.size())
      return;
    if (word == "uc1") return;
    text += Utf8(std::stoi(word.substr(1)));
    ++at_;  // the letter for readers that know no Unicode
  }

  const std::string& rtf_;
  std::size_t at_ = 0;
  int groups_ = 0;
  bool inPicture_ = false;
  std::string hex_;
};

ReportContent Molasses() {
  ReportContent report;
  ConditionsRecord record;
  record.saved = true;
  record.number = 7;
  record.row[At::Cx0] = 1.25;
  record.row[At::YpsTyped] = 0.42448;
  record.row[At::Yps] = 1;
  record.options.model = "Monod";  // which the switches of the Aiba model overrule
  KineticParameters switches;
  SetModelSwitches(*FindModel("Aiba"), switches);
  std::copy(switches.values.begin() + 7, switches.values.begin() + 23,
            record.row.values.begin() + 7);
  report.records = {record};
  report.problem.experiments.resize(1);
  report.problem.experiments[0].number = 7;
  report.problem.variables = {{At::muMax, 0.05, 0.5, 0.2}, {At::Ks, 1, 40, 10}};
  report.result.end = SearchEnd::Converged;
  report.result.best = {0.179, 11};
  report.result.score = 0.003;
  report.deviations.values = {0.0087, 3.25};
  return report;
}

/// The lines that `text` must hold in this order.
void ExpectInOrder(const std::string& text, std::initializer_list<const char*> lines) {
  std::size_t at = 0;
  for (const char* line : lines) {
    const std::size_t found = text.find(line, at);
    ASSERT_NE(found, std::string::npos) << line << " in " << text.substr(at);
    at = found + std::string(line).size();
  }
}

TEST(Report, TellsEverythingInItsOrder) {
  const std::string rtf = Relatorio(Molasses());
  EXPECT_TRUE(rtf.starts_with("{\\rtf1\\ansi\\ansicpg1252\\uc1"));
  EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char c) { return c > 0; })) << "7-bit";
  EXPECT_EQ(std::count(rtf.begin(), rtf.end(), '\n'), std::count(rtf.begin(), rtf.end(), '\r'));
  ExpectInOrder(Reader(rtf).text, {"Report of estimated kinetic parameters\n",
                                   "Version 1.0\n",
                                   "Type of cultivation: Batch\n",
                                   "Number of experiments added: 1\n",
                                   "Chosen model: Aiba\n",
                                   "·exp(",
                                   "Kip·Cp)\n",
                                   "Conditions of the experiment: 7\n",
                                   "Cx0: |1.25|Cs0: |0|Cp0: |0|T: |0|\n",
                                   "Yxs: |0|Yps: |0.42448|Alfa: |0|Beta: |0|",
                                   "Mimax: |0|Ks: |0|Kis: |1|Kp: |0|\n",
                                   "CxAst: |1|CpAst: |1|m: |0|n: |0|\n",
                                   "u: |1|v: |0|C: |0|B: |0|\n",
                                   "B1: |1|B2: |1|G: |1|H1: |0|\n",
                                   "ms: |0|Kd: |0|Kdp: |0|CsAst1: |0|\n",
                                   "CsAst2: |0|",
                                   "Initial values of estimated variables: \n",
                                   "µmáx = 0.2\n",
                                   "Ks = 10\n",
                                   "Upper bound of µmáx = 0.5|Lower bound of µmáx = 0.05|\n",
                                   "Upper bound of Ks = 40|Lower bound of Ks = 1|\n",
                                   "Estimated variables: \n",
                                   "µmáx = 0.179 +/- 0.0087\n",
                                   "Ks = 11.00 +/- 3.25\n",
                                   "Sum of squared errors: 0.003\n"});
}

TEST(Report, SpeaksPortuguese) {
  ReportContent report = Molasses();
  report.style = {Language::Portuguese, ','};
  ExpectInOrder(Reader(Relatorio(report)).text,
                {"Relatório do ajuste de parâmetros cinéticos\n", "Cx0: |1,25|",
                 "Limite superior de µmáx = 0,5|", "\nKs = 11,00 +/- 3,25\n"});
}

TEST(Report, SaysWhyThereAreNoDeviations) {
  ReportContent report = Molasses();
  report.deviations.values.clear();
  report.deviations.fault = ArithmeticFault{FaultKind::DivisionByZero, FaultTerm::Deviations};
  const std::string text = Reader(Relatorio(report)).text;
  ExpectInOrder(text,
                {"\nKs = 11.00\nThe deviations could not be computed: the measured values are "
                 "too few, or do not determine each of the parameters.\n"});
  EXPECT_EQ(text.find("+/-"), std::string::npos);

  report.style.language = Language::Portuguese;
  report.deviations.fault =
      ArithmeticFault{FaultKind::Overflow, FaultTerm::SubstrateBalance, 1, 37, 2};
  ExpectInOrder(Reader(Relatorio(report)).text,
                {"\nOs desvios não puderam ser calculados: valor grande demais no balanço de "
                 "substrato (experimento 7, ponto 37 de 100).\n"});
}

TEST(Report, SaysWhereTheSearchDidNotConverge) {
  ReportContent report = Molasses();
  const auto endOf = [&](SearchEnd end) {
    report.result.end = end;
    const std::string text = Reader(Relatorio(report)).text;
    return text.substr(text.find("errors: 0.003\n") + 14);
  };
  EXPECT_EQ(endOf(SearchEnd::Converged), "");
  EXPECT_EQ(endOf(SearchEnd::Stopped), "Estimate was not completed:  \n");
  EXPECT_EQ(endOf(SearchEnd::GenerationLimit),
            "Did not converge. Reducing the parameter EPS or increasing ITER or both,\n"
            "increase parameters population size, crossover probability or scale parameter.\n");
  report.result.fault = ArithmeticFault{FaultKind::Overflow, FaultTerm::SubstratePower, 1, 1, 1};
  report.result.bestGeneration = 4;
  EXPECT_EQ(
      endOf(SearchEnd::Fault),
      "Estimate was not completed:  overflow in the substrate power Cs^u (experiment 7, point 1 "
      "of 100)\nThe best values found before this are those of generation 4.\n");
}

TEST(Report, EscapesWhatADescriptionHolds) {
  ReportContent report = Molasses();
  report.problem.experiments[0].description = "{α \\par} ç <b>&\nlast\x01\xFF";
  EXPECT_NE(Reader(Relatorio(report)).text.find(": 7\n{α \\par} ç <b>&\nlast?\n"),
            std::string::npos);
  EXPECT_NE(rich::Html(ReportDocument(report), 100).find(">{α \\par} ç &lt;b&gt;&amp;<br>last?<"),
            std::string::npos);
}

TEST(Report, HoldsPicturesToTheByte) {
  ReportContent report = Molasses();
  std::string first;
  for (int byte = 0; byte < 256; ++byte) first += static_cast<char>(byte);
  report.pictures = {{TextId{130}, {first, 300, 200}},
                     {TextId{126}, {"second", 300, 200}},
                     {TextId{125}, {"third", 3, 2}}};
  const Reader reader(Relatorio(report));
  ExpectInOrder(reader.text, {"Sum of squared errors: 0.003\n", "Cx versus time\n",
                              "Cs versus time\n", "Cp versus time\n"});
  EXPECT_EQ(reader.pictures, (std::vector<std::string>{first, "second", "third"}));
  EXPECT_NE(rich::Html(ReportDocument(report), 100).find("src=\"picture-2\""), std::string::npos);
}

/// Keeps what is drawn; letters are as wide as high.
class Recording : public ChartCanvas {
 public:
  std::vector<std::string> words;
  std::vector<PaperPoint> markers;
  std::vector<PaperPoint> curve;

  void OpenPaper(const PaperArea&) override {}
  void ClosePaper() override {}
  void SetFontHeight(double height) override { height_ = height; }
  void SetTitleFontHeight(double height) override { height_ = height; }
  double FontHeight() const override { return height_; }
  double Ascent() const override { return height_; }
  double Descent() const override { return 0; }
  double WidthOf(std::string_view text) const override {
    return height_ * static_cast<double>(text.size());
  }
  void Write(const PaperPoint&, std::string_view text) override { words.emplace_back(text); }
  void WriteUpwards(const PaperPoint&, std::string_view text) override { words.emplace_back(text); }
  void DrawLines(std::span<const PaperLine>, const Stroke&) override {}
  void DrawCurve(std::span<const PaperPoint> points, const Stroke&) override {
    curve.insert(curve.end(), points.begin(), points.end());
  }
  void DrawDots(std::span<const PaperPoint>, double, Ink) override {}
  void DrawMarkers(std::string_view, std::span<const PaperPoint> centres, double, Ink,
                   double) override {
    markers.insert(markers.end(), centres.begin(), centres.end());
  }

 private:
  double height_ = 1;
};

TEST(Report, DrawsChartsWithCurvesAndALegendOfWhatIsVisible) {
  ExperimentLists lists;
  for (const std::int16_t number : {std::int16_t{7}, std::int16_t{8}}) {
    Experiment experiment{number, "", {0, 4}, {1, 3}, {10, 5}, {0, 1}, 4, true};
    lists.Append(experiment, {"QuadVazio", 1, 1, number == 7});
  }
  ModelCurves curves{};
  curves[0].points = 100;
  for (std::size_t k = 0; k < 100; ++k) curves[0].time[k] = 0.04 * static_cast<double>(k);
  curves[0].Cx.fill(2);
  const auto charts = ReportCharts(lists, curves, true, '.');
  ASSERT_EQ(charts.size(), 3u);
  EXPECT_EQ(charts[0].titleId, TextId{130});  // Cx, whose values are 1 and 3
  Recording canvas;
  DrawReportChart(canvas, charts[0].content, LegendRows(lists));

  const auto has = [&](const char* word) {
    return std::count(canvas.words.begin(), canvas.words.end(), word) == 1;
  };
  EXPECT_TRUE(has("Cx (g/L)") && has("t (h)") && has("Exp. 7") && !has("Exp. 8"));
  ASSERT_EQ(canvas.markers.size(), 3u);  // two points and the legend's
  EXPECT_GT(canvas.markers[2].y, canvas.markers[0].y) << "below the chart";
  const double middle = (canvas.markers[0].y + canvas.markers[1].y) / 2;
  ASSERT_FALSE(canvas.curve.empty());
  EXPECT_NEAR(canvas.curve.front().y, middle, 1e-9) << "2 g/L is half-way from 1 to 3";
}

}  // namespace
}  // namespace velmora

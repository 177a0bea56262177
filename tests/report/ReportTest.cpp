#include <gtest/gtest.h>

#include <algorithm>

#include "kinetics/Modelos.h"
#include "report/Relatorio.h"
#include "report/ReportCharts.h"
#include "tests/support/NotingCanvas.h"

namespace velmora {
namespace {

/// What a reader of the report sees: a paragraph is a line, and so is a row of cells, each of which
/// ends with "|".
std::string TextOf(const ReportContent& report) {
  std::string text;
  for (const auto& block : ReportDocument(report)) {
    if (const auto* const paragraph = std::get_if<rich::Paragraph>(&block))
      text += paragraph->text + "\n";
    if (const auto* const table = std::get_if<rich::Table>(&block))
      for (const auto& row : table->rows) {
        for (const std::string& cell : row) text += cell + "|";
        text += "\n";
      }
  }
  return text;
}

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
  ExpectInOrder(TextOf(Molasses()), {"Report of estimated kinetic parameters\n",
                                     "Version 1.0\n",
                                     "Type of cultivation: Batch\n",
                                     "Number of experiments added: 1\n",
                                     "Chosen model: Aiba\n",
                                     "·exp(",
                                     "Kip·Cp)\n",
                                     "Conditions of the experiment: 7\n",
                                     "Cx0: |1.25|Cs0: |0|Cp0: |0|\n",
                                     "T: |0|Yxs: |0|Yps: |0.42448|\n",
                                     "Alfa: |0|Beta: |0|Mimax: |0|\n",
                                     "Ks: |0|Kis: |1|Kp: |0|\n",
                                     "CxAst: |1|CpAst: |1|m: |0|\n",
                                     "n: |0|u: |1|v: |0|\n",
                                     "C: |0|B: |0|B1: |1|\n",
                                     "B2: |1|G: |1|H1: |0|\n",
                                     "ms: |0|Kd: |0|Kdp: |0|\n",
                                     "CsAst1: |0|CsAst2: |0|",
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
  ExpectInOrder(TextOf(report), {"Relatório do ajuste de parâmetros cinéticos\n", "Cx0: |1,25|",
                                 "Limite superior de µmáx = 0,5|", "\nKs = 11,00 +/- 3,25\n"});
}

TEST(Report, TellsWhatTheDataTellBehindTheResults) {
  ReportContent report = Molasses();
  FitVerdict verdict;
  verdict.parameters.of = {{}, {{{FindingKind::Together, 0.9871, At::muMax}}}};
  verdict.trends = {{1, "Cp", 2, 8, 0.0286}};
  report.verdict = verdict;
  ExpectInOrder(TextOf(report),
                {"Sum of squared errors: 0.003\n", "What the data tell:\n", "µmáx: determined.\n",
                 "Ks: determined only together with µmáx (correlation 0.987).\n",
                 "Residuals that are not random: experiment 7, Cp: 2 run(s) of equal sign in 8 "
                 "points (probability 0.029)."});
}

TEST(Report, SaysWhyThereAreNoDeviations) {
  ReportContent report = Molasses();
  report.deviations.values.clear();
  report.deviations.fault = ArithmeticFault{FaultKind::DivisionByZero, FaultTerm::Deviations};
  const std::string text = TextOf(report);
  ExpectInOrder(text,
                {"\nKs = 11.00\nThe deviations could not be computed: the measured values are "
                 "too few, or do not determine each of the parameters.\n"});
  EXPECT_EQ(text.find("+/-"), std::string::npos);

  report.style.language = Language::Portuguese;
  report.deviations.fault =
      ArithmeticFault{FaultKind::Overflow, FaultTerm::SubstrateBalance, 1, 37, 2};
  ExpectInOrder(TextOf(report),
                {"\nOs desvios não puderam ser calculados: valor grande demais no balanço de "
                 "substrato (experimento 7, ponto 37 de 100).\n"});
}

TEST(Report, SaysWhereTheSearchDidNotConverge) {
  ReportContent report = Molasses();
  const auto endOf = [&](SearchEnd end) {
    report.result.end = end;
    const std::string text = TextOf(report);
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

TEST(Report, IsRichTextToTheByte) {
  std::string bytes, hex;
  for (int byte = 0; byte < 256; ++byte) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    bytes += static_cast<char>(byte);
    if (byte % 64 == 0) hex += "\r\n";
    hex += {kDigits[static_cast<std::size_t>(byte / 16)],
            kDigits[static_cast<std::size_t>(byte % 16)]};
  }
  ReportContent report = Molasses();
  report.problem.experiments[0].description = "{α \\par} ç <b>&\nlast\x01\xFF";
  report.pictures = {{TextId{130}, {bytes, 300, 200}},
                     {TextId{126}, {"second", 300, 200, "drawn"}},
                     {TextId{125}, {"third", 3, 2}}};
  const std::string rtf = Relatorio(report);
  EXPECT_TRUE(rtf.starts_with("{\\rtf1\\ansi\\ansicpg1252\\uc1"));
  EXPECT_TRUE(std::all_of(rtf.begin(), rtf.end(), [](char c) { return c > 0; })) << "7-bit";
  for (const auto& [open, close] : {std::pair{'\r', '\n'}, {'{', '}'}})
    EXPECT_EQ(std::count(rtf.begin(), rtf.end(), open), std::count(rtf.begin(), rtf.end(), close));
  const std::string picture = "\\picw300\\pich200\\picwgoal9072\\pichgoal6048" + hex + "}\\par}";
  ExpectInOrder(rtf, {" \\{\\u945? \\\\par\\} \\'e7 <b>&\\line last?\\par}\r\n", " Cx0: \\cell\r\n",
                      " 1.25\\cell\r\n", "\\cell\r\n\\row\r\n", " Cx versus time\\par}",
                      picture.c_str(), " Cs versus time\\par}", "{\\*\\shppict{\\pict\\emfblip",
                      "647261776e}}{\\nonshppict{\\pict\\pngblip", "7365636f6e64}}\\par}",
                      " Cp versus time\\par}"});
  const std::string html = rich::Html(ReportDocument(report), 100);
  ExpectInOrder(html, {">{α \\par} ç &lt;b&gt;&amp;<br>last?<", "src=\"picture-2\""});
}

/// The digits that the deviation leaves certain; the numbers are rounded by hand.
TEST(Report, RoundsValuesToWhatIsCertain) {
  EXPECT_EQ(WithDeviation(0.17912, 0.0087, '.'), "0.179 ± 0.009");
  EXPECT_EQ(WithDeviation(11.367, 1.46, ','), "11,4 ± 1,5");
  EXPECT_EQ(WithDeviation(1234.5, 321, '.'), "1200 ± 300");
  EXPECT_EQ(WithDeviation(0.17912, 0, '.'), "0.1791");
}

TEST(Report, BeginsWithASummary) {
  ReportContent report = Molasses();
  report.deviations.observations = 27;
  report.result.starts = 40, report.result.agreeing = 38;
  report.verdict.emplace();
  report.verdict->parameters.of = {{}, {}};
  ReportSummary summary{
      "2026-11-21 22:00", {"molasses.abr"}, Method::ED, {}, {{0.999, 0.98, 1}}, {}};
  summary.intervals.emplace();
  summary.intervals->of = {{0.17, 0.188, {}}, {7.5, std::nullopt, {}}};
  report.summary = summary;
  ExpectInOrder(
      TextOf(report),
      {"Report of estimated kinetic parameters\n", "Summary\n", "Program: Velmora ",
       "Date: 2026-11-21 22:00\n", "Files: molasses.abr\n", "Units: time in h",
       "Method: differential evolution\n", "NPOP = 100; ITER = 200; PCROS = 0.8;",
       "Seed of the random numbers: 5471\n", "End of the search: it converged\n",
       "Sum of squared errors: 0.003; square error: 0.0001111 (27 values)\n",
       "R²: Cx 0.999, Cs 0.98, Cp 1\n", "Parameter|Value|95 % interval|What the data tell|\n",
       "µmáx|0.179 ± 0.009|0.17 to 0.188|determined|\n", "Ks|11 ± 3|7.5 or more; open above|",
       "Version 1.0\n", "Sum of squared errors: 0.003\n"});
}

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
  test::NotingCanvas canvas;
  DrawReportChart(canvas, charts[0].content);

  const auto has = [&](std::string_view word) {
    return std::any_of(canvas.texts.begin(), canvas.texts.end(),
                       [=](const auto& written) { return written.text == word; });
  };
  EXPECT_TRUE(has("Cx (g/L)") && has("t (h)") && has("Exp. 7") && !has("Exp. 8"));
  ASSERT_EQ(canvas.markers.size(), 3u);  // two points and the legend's
  const double middle = (canvas.markers[0].y + canvas.markers[1].y) / 2;
  ASSERT_FALSE(canvas.curve.empty());
  EXPECT_NEAR(canvas.curve.front().y, middle, 1e-9) << "2 g/L is half-way from 1 to 3";

  // A metafile tells its own length and the count of its records.
  const std::string drawing = ReportDrawing(charts[0].content);
  const auto at = [&](std::size_t place) {
    std::uint32_t number = 0;
    for (std::size_t i = 4; i-- > 0;)
      number = number << 8U | static_cast<unsigned char>(drawing.at(place + i));
    return number;
  };
  EXPECT_EQ(drawing.substr(40, 4), " EMF");
  EXPECT_EQ(at(48), drawing.size());
  std::uint32_t records = 0;
  for (std::size_t place = 0; place < drawing.size(); place += at(place + 4)) ++records;
  EXPECT_EQ(at(52), records);
}

}  // namespace
}  // namespace velmora

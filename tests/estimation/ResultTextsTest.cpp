#include <gtest/gtest.h>

#include "estimation/ResultTexts.h"
#include "tests/support/Batches.h"

namespace velmora {
namespace {

TEST(ResultTexts, StandToTheCharacter) {
  const FitProblem problem = test::TwoBatches();
  const std::vector<double> best{0.179, 11.37, 1.5};
  EXPECT_EQ(ProgressText(problem.variables, {1, best, 0.125, 200, 60}, {Language::Portuguese, ','}),
            "**********Parâmetros estimados**********\n"
            "µmáx = 0,179\nKs = 11,37\nn = 1,50\n"
            "Soma do quadrado dos erros = 0,125\n"
            "Erro quadrático = 0,0020833333333333333\n"
            "Total de funções chamadas = 200\n"
            "-----------------------------------------------------\n");
  SearchResult result;
  result.end = SearchEnd::GenerationLimit, result.best = best, result.score = 0.125;
  Deviations deviations;
  deviations.values = {0.01, 2, 0.00000000000004}, deviations.observations = 50;
  EXPECT_EQ(FinalText(problem, result, deviations, {}),
            "**********Estimated parameters with deviation**********\n"
            "µmáx = 0.179 +/- 0.01\nKs = 11.37 +/- 2.00\nn = 1.50 +/- 0.00\n"
            "Sum of squared errors = 0.125\nSquare error = 0.0025\n"
            "Did not converge. Reducing the parameter EPS or increasing ITER or both,\n"
            "increase parameters population size, crossover probability or scale parameter.\n");

  result.end = SearchEnd::Stopped;
  deviations.fault = ArithmeticFault{FaultKind::DivisionByZero, FaultTerm::Deviations};
  EXPECT_EQ(FinalText(problem, result, deviations, {Language::Portuguese, ','}),
            "**********Parâmetros estimados**********\n"
            "µmáx = 0,179\nKs = 11,37\nn = 1,50\n"
            "Soma do quadrado dos erros = 0,125\nErro quadrático = 0,0025\n"
            "Estimativa não concluída:  \n");
  result.end = SearchEnd::Converged;
  EXPECT_EQ(EndText(problem, result, Language::English), "End of estimation.\n");
}

TEST(ResultTexts, SayWhereTheBestBeforeAFaultWasFound) {
  const FitProblem problem = test::TwoBatches();
  SearchResult result;
  result.end = SearchEnd::Fault, result.best = {0.179, 11.37, 1.5};
  result.fault = ArithmeticFault{FaultKind::Overflow, FaultTerm::Score, 2};
  EXPECT_NE(EndText(problem, result, Language::English).find("initial population"),
            std::string::npos);
  result.bestGeneration = 3;
  EXPECT_NE(EndText(problem, result, Language::English).find("generation 3"), std::string::npos);
}

TEST(ResultTexts, HaveTheDigitsThatAreAskedFor) {
  const FitVariable Ks{At::Ks, 1, 50, 10};
  EXPECT_EQ(ShortLine(Ks, 11.376512, 0.0312, nullptr, false, '.'), "Ks = 11.38 ± 0.03 g/L");
  EXPECT_EQ(ShortLine(Ks, 11.376512, 0.0312, nullptr, true, ','), "Ks = 11,376512 ± 0,0312 g/L");
  EXPECT_EQ(ShortLine(Ks, 11.376512, 0, nullptr, false, '.'), "Ks = 11.38 g/L");
  EXPECT_EQ(ShortLine(Ks, 11.376512, 0, nullptr, true, '.'), "Ks = 11.376512 g/L");
}

}  // namespace
}  // namespace velmora

// The texts of a running and of an ended fit, as the results box and the command line show them.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "estimation/Deviations.h"
#include "estimation/SearchResult.h"
#include "kinetics/Modelos.h"
#include "language/Texts.h"

namespace velmora {

/// The same in both languages.
inline constexpr std::string_view kFunctionCalls = "Total de funções chamadas = ";
/// Said once for each measured variable without a value above 0, in both languages.
inline constexpr std::string_view kNotNormalised = "Erro na normalização dos dados experimentais";

/// Language and decimal separator of a text.
struct TextStyle {
  Language language = Language::English;
  char separator = '.';
};

/// The sum of squared errors per observation.
double SquareError(double sumOfSquaredErrors, int observations);

/// One line for each fitted parameter, its label and value ("Ks = 11.37"), lines ended by '\n'.
/// `best` is as long as `variables`.
std::string ParameterLines(std::span<const FitVariable> variables, std::span<const double> best,
                           TextStyle style);

/// "Ks = 12 ± 3 g/L": the value with its deviation, in the digits that this leaves certain or in
/// all of them, and its unit in `model`, null where it is not known; the value alone where the
/// deviation is not known (0).
std::string ShortLine(const FitVariable& variable, double value, double deviation,
                      const Model* model, bool allDigits, char separator);

/// The block after each generation: heading, parameters, errors, function calls, separator line.
std::string ProgressText(std::span<const FitVariable> variables, const Generation& generation,
                         TextStyle style);

/// How many of a search's starts reached its result; empty where the method makes none.
std::string AgreementText(const SearchResult& result, Language language);

/// How a search ended, lines ended by '\n': that it did, that it did not converge, or that it was
/// not completed, after a fault with what happened and where the best vector was found, if there is
/// one.
std::string EndText(const FitProblem& problem, const SearchResult& result, Language language);

/// The block after a search with a result: the parameters with their deviations, the errors,
/// how many starts agree, and how the search ended. Without deviations where these could not be
/// computed.
std::string FinalText(const FitProblem& problem, const SearchResult& result,
                      const Deviations& deviations, TextStyle style);

}  // namespace velmora

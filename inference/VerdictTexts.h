// What the data can tell, in words.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "estimation/ResultTexts.h"
#include "inference/Verdicts.h"

namespace velmora {

/// "determined", or all findings, on one line without an end mark.
std::string Worded(const ParameterVerdict& verdict, TextStyle style);

/// One line for each of the problem's variables: "Ks: determined."
std::vector<std::string> ParameterVerdictLines(const FitVerdict& verdict, const FitProblem& problem,
                                               TextStyle style);

/// The heading and all verdicts, lines ended by '\n'.
std::string VerdictsText(const FitVerdict& verdict, const FitProblem& problem, TextStyle style);

/// The verdict on the fit as a whole, one line or several.
std::vector<std::string> RunVerdictLines(const FitVerdict& verdict, const FitProblem& problem,
                                         TextStyle style);

}  // namespace velmora

// The commands: what the command line says of each, and what runs it.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/Console.h"
#include "cli/Inputs.h"
#include "data/NumberMarks.h"
#include "estimation/EstimationSettings.h"
#include "estimation/Workers.h"
#include "inference/Intervals.h"

namespace velmora::cli {

struct ModelsOptions {
  bool json = false;
};

/// Prints the catalogue: name, parameters and growth rate of each model.
ExitCode Run(const ModelsOptions& options, const Console& console);

struct CheckOptions {
  std::string file;
  bool json = false;
};

/// Tells by its second line which of the two files this is, reads it, and prints what it holds, and
/// what measured data look like.
ExitCode Run(const CheckOptions& options, const Console& console);

struct ImportOptions {
  std::vector<std::string> tables;
  std::string output;
  std::vector<std::string> only;         // labels to keep; empty: all
  std::optional<std::string> decimal;    // point or comma
  std::optional<std::string> thousands;  // a key of `kThousandsNames`
  std::string columns;                   // NAME=COLUMN,..., a header or a place from 1
  std::vector<std::string> units;        // NAME=UNIT
  std::vector<std::string> molarMasses;  // NAME=VALUE, g/mol
  std::optional<std::string> missing;    // drop-row or interpolate
  std::optional<std::string> sheet;      // of a workbook
  bool json = false;
};

/// The names of what stands between thousands.
inline constexpr std::array<std::pair<const char*, Thousands>, 5> kThousandsNames = {
    {{"point", Thousands::Point},
     {"comma", Thousands::Comma},
     {"blank", Thousands::Blank},
     {"apostrophe", Thousands::Apostrophe},
     {"none", Thousands::None}}};

/// Makes an experiment file from spreadsheets' tables, and tells what of them was left out.
ExitCode Run(const ImportOptions& options, const Console& console);

struct ConditionsOptions {
  std::string experiments;
  std::string model;
  std::string product;           // PAC, PPAC or PNAC; empty: to be proposed
  std::string yields;            // global or stoichiometric; empty: to be proposed
  std::string method = "LM";     // LM, ED or Manual
  std::vector<std::string> set;  // NAME=VALUE or PLACE:NAME=VALUE
  std::vector<std::string> fit;  // NAME=START:LOWER:UPPER
  bool propose = false;          // from the data, what is not given
  bool json = false;
  std::string output;
};

/// Makes a conditions file for the experiments of a file, by the rules of the cultivation window.
/// Prints the reason of all that it proposes.
ExitCode Run(const ConditionsOptions& options, const Console& console);

/// How curves are written.
struct CurveOptions {
  bool json = false;
  std::string format;  // csv, tsv or json; empty: the command's own text
  int points = 0;      // of each curve; 0: those computed
};

struct SimulateOptions : CurveOptions {
  InputOptions inputs;
};

/// Integrates every experiment and prints its 100 model points. An experiment that meets an
/// arithmetic fault is reported and left out.
ExitCode Run(const SimulateOptions& options, const Console& console);

struct ExportOptions : CurveOptions {
  InputOptions inputs;
};

/// Prints the computed curves, by default as tab-separated text; nothing where an experiment meets
/// a fault.
ExitCode Run(const ExportOptions& options, const Console& console);

struct ScoreOptions {
  InputOptions inputs;
  bool json = false;
};

/// Prints the sum of squared errors, with the share of each experiment's variables.
ExitCode Run(const ScoreOptions& options, const Console& console);

/// The options that state the seven settings of a search.
struct SettingOption {
  const char* option;
  std::optional<double> TypedSettings::*typed;
  const char* help;
};
inline constexpr std::array<SettingOption, 7> kSettingOptions = {
    {{"--npop", &TypedSettings::NPOP, "population size, at least 10 (default 100)"},
     {"--iter", &TypedSettings::ITER, "most generations, at least 200 (default 200)"},
     {"--pcros", &TypedSettings::PCROS, "crossover probability, 0.5 to 0.9 (default 0.8)"},
     {"--fact", &TypedSettings::FACT, "weight of the difference term, 0.5 to 0.9 (default 0.8)"},
     {"--fact1", &TypedSettings::FACT1, "weight of the second term, 0 to 0.01 (default 0.01)"},
     {"--eps", &TypedSettings::EPS, "accuracy of convergence, 1e-7 to 1e-4 (default 1e-5)"},
     {"--iu", &TypedSettings::IU, "seed of the random numbers, 1000 to 9999 (default 5471)"}}};
/// The setting that both methods have; the others are those of the method ED alone.
inline constexpr std::size_t kSeedOption = 6;

/// The settings as typed, in the order of their options.
using SettingTexts = std::array<std::optional<std::string>, kSettingOptions.size()>;

/// The settings, the usual ones where nothing is typed. Throws a `Failure` for text that is no
/// number (Usage), or one out of its bounds (Refused).
EstimationSettings SettingsOf(const SettingTexts& settings, const Wording& say);

struct FitOptions {
  FitOptions() { inputs.fits = true; }

  InputOptions inputs;
  std::optional<std::string> method;  // in place of the conditions' own
  SettingTexts settings;
  std::vector<std::string> uncertainty;  // linear, profile, bootstrap
  int replicates = kReplicates;
  unsigned threads = AllCores();
  bool progress = false;
  bool json = false;
  bool allDigits = false;             // of the values in short
  std::optional<std::string> report;  // the file to write the report to
};

/// Checks settings, files and fit set-up, searches, and prints the results with their deviations.
/// Ctrl-C, SIGTERM and SIGHUP end the search; the results are printed all the same.
ExitCode Run(const FitOptions& options, const Console& console);

struct BatchOptions {
  std::string list;
  std::optional<std::string> shard;  // K/N
  std::string output;                // empty: standard output
};

/// Runs the commands of a list, a JSON object in each line, and writes a JSON line for each in the
/// list's order. A command that fails does not end the rest; lines whose results stand in the
/// output already are passed over. A signal ends it once the running command has ended.
ExitCode Run(const BatchOptions& options, const Console& console);

struct CompareOptions {
  InputOptions inputs;
  std::string models = "all";       // or names, separated by commas
  std::optional<std::string> seed;  // as typed
  unsigned threads = AllCores();
  bool progress = false;
  bool json = false;
  bool allDigits = false;             // of the best model's values
  std::optional<std::string> report;  // the file to write the report to
};

/// Fits every model and prints them ranked. Ctrl-C, SIGTERM and SIGHUP end it; what is done is
/// printed all the same.
ExitCode Run(const CompareOptions& options, const Console& console);

/// The kinds of charts.
inline constexpr std::array<const char*, 4> kChartKinds = {"curves", "residuals", "parity",
                                                           "profile"};

/// Their formats, in the order of `PictureFormat`.
inline constexpr std::array<const char*, 3> kChartFormats = {"png", "svg", "pdf"};

struct ChartOptions {
  InputOptions inputs;  // without a conditions file only the measured points are drawn
  std::string output;
  std::string format;               // empty: as the end of the output's name tells
  std::optional<std::string> seed;  // of the fit, as typed
  unsigned threads = AllCores();
  bool json = false;
  std::string kind = kChartKinds[0];
  bool asGiven = false;      // the conditions' own values, without a fit
  bool logarithmic = false;  // concentrations
  std::string title;
  double width = 160;            // mm
  std::optional<double> height;  // mm
  double dpi = 300;
};

/// Draws the charts of Cx, Cs and Cp, or the profile of each fitted parameter, for publication.
ExitCode Run(const ChartOptions& options, const Console& console);

}  // namespace velmora::cli

// The only unit that includes the command-line parser, which takes seconds to compile.
#include "cli/Arguments.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <map>

#include "cli/Assignments.h"
#include "cli/Description.h"
#include "language/HelpTexts.h"

namespace velmora::cli {
namespace {

/// What the help says, in the language that it is asked in.
class Help {
 public:
  explicit Help(Language language) : language_(language) {}

  std::string operator()(const HelpText& text) const { return text.In(language_); }
  std::string OfInputs() const { return (*this)(kInputsFooterText) + FittableNames() + "."; }
  /// Puts all of a command into that language.
  void Translate(CLI::App& app) const;

 private:
  const Language language_;
};

void Help::Translate(CLI::App& app) const {
  if (language_ == Language::English) return;
  const auto in = [](const std::string& text) { return std::string(HelpInPortuguese(text)); };
  for (const char* const label : {"Usage", "OPTIONS", "Positionals", "SUBCOMMAND", "REQUIRED"})
    app.get_formatter()->label(label, in(label));
  app.description(in(app.get_description()));
  app.group(in(app.get_group()));
  for (CLI::Option* const option : app.get_options()) {
    option->description(in(option->get_description()));
    if (!option->get_group().empty()) option->group(in(option->get_group()));
  }
  for (CLI::App* const command : app.get_subcommands([](CLI::App*) { return true; }))
    Translate(*command);
}

/// All options of the command line, filled by the parser.
struct Options {
  std::string language = "en";
  double limit = 64;  // MB
  GeneralOptions general;
  ModelsOptions models;
  SimulateOptions simulate;
  ScoreOptions score;
  FitOptions fit;
  CompareOptions compare;
  ChartOptions chart;
  ExportOptions exported;
  CheckOptions check;
  ImportOptions import;
  ConditionsOptions conditions;
  BatchOptions batch;
};

void AddJson(CLI::App& command, bool& json) {
  command.add_flag("--json", json, "print JSON instead of text");
}

void AddReport(CLI::App& command, std::optional<std::string>& report) {
  command.add_option("--report", report, "also write a report as rich text")->type_name("FILE.rtf");
}

/// An option that takes one text each time that it is given.
CLI::Option* AddRepeated(CLI::App& command, const char* name, std::vector<std::string>& texts,
                         const char* help) {
  return command.add_option(name, texts, help)->allow_extra_args(false);
}

void AddFitted(CLI::App& command, std::vector<std::string>& fit) {
  AddRepeated(command, "--fit", fit, "a parameter to fit")->type_name("NAME=START:LOWER:UPPER");
}

void AddOutput(CLI::App& command, std::string& output) {
  command.add_option("-o,--output", output, "file to write, - for standard output")
      ->required()
      ->type_name("FILE.abr");
}

/// For what a command prints.
void AddPrinted(CLI::App& command, GeneralOptions& general) {
  command.add_option("-o,--output", general.output, "file to write instead of printing")
      ->type_name("FILE");
}

void AddExperiments(CLI::App& command, std::string& experiments) {
  command.add_option("EXPERIMENTS", experiments, "experiment file")
      ->required()
      ->type_name("FILE.abr");
}

/// A command that takes experiments and conditions.
CLI::App& AddFilesCommand(CLI::App& app, const char* name, const char* about,
                          InputOptions& inputs) {
  CLI::App& command = *app.add_subcommand(name, about);
  AddExperiments(command, inputs.experiments);
  command.add_option("CONDITIONS", inputs.conditions, "conditions file")
      ->required()
      ->type_name("FILE.abr");
  return command;
}

void AddModelAndValues(CLI::App& command, InputOptions& inputs) {
  command.add_option("--model", inputs.model, "growth model to use instead of the file's")
      ->type_name("MODEL");
  AddRepeated(command, "--set", inputs.set, "value of a parameter in every experiment")
      ->type_name("NAME=VALUE");
}

/// A command that takes experiments, conditions, and what is to be used in place of these.
CLI::App& AddCommand(CLI::App& app, const char* name, const char* about, InputOptions& inputs,
                     const Help& help) {
  CLI::App& command = AddFilesCommand(app, name, about, inputs);
  AddModelAndValues(command, inputs);
  command.footer(help.OfInputs());
  return command;
}

void AddSeed(CLI::App& command, std::optional<std::string>& seed) {
  const SettingOption& option = kSettingOptions[kSeedOption];
  command.add_option(option.option, seed, option.help)->type_name("NUMBER");
}

void AddThreads(CLI::App& command, unsigned& threads) {
  command.add_option("--threads", threads, "processor cores to use (default all)")
      ->check(CLI::Range(1, 256).description(""))
      ->type_name("NUMBER");
}

void AddDigits(CLI::App& command, bool& all) {
  command
      .add_option_function<std::string>(
          "--digits", [&all](const std::string& digits) { all = digits == "all"; },
          "digits of the values behind the results: those that their deviations leave\n"
          "certain (default), or all")
      ->check(CLI::IsMember({"certain", "all"}).description(""))
      ->type_name("certain|all");
}

void AddFit(CLI::App& app, FitOptions& fit, GeneralOptions& general, const Help& help) {
  CLI::App& command =
      AddCommand(app, "fit", "fit the parameters and print their deviations", fit.inputs, help);
  AddFitted(command, fit.inputs.fit);
  command
      .add_option("--method", fit.method,
                  "Levenberg-Marquardt from many starts (LM) or differential evolution (ED), in\n"
                  "place of the conditions' own")
      ->check(CLI::IsMember({"ED", "LM"}).description(""))
      ->type_name("ED|LM");
  for (std::size_t i = 0; i < kSettingOptions.size(); ++i)
    command.add_option(kSettingOptions[i].option, fit.settings[i], kSettingOptions[i].help)
        ->type_name("NUMBER");
  AddRepeated(command, "--uncertainty", fit.uncertainty,
              "95 % intervals by linear theory, by the likelihood profile, or by fits to\n"
              "resampled data (may be repeated)")
      ->check(CLI::IsMember({"linear", "profile", "bootstrap"}).description(""))
      ->type_name("linear|profile|bootstrap");
  command.add_option("--replicates", fit.replicates, "fits of the bootstrap (default 500)")
      ->check(CLI::Range(20, 100'000).description(""))
      ->type_name("NUMBER");
  AddDigits(command, fit.allDigits);
  AddThreads(command, fit.threads);
  command.add_flag("--progress", fit.progress, "print the results after every generation or start");
  AddJson(command, fit.json);
  AddPrinted(command, general);
  AddReport(command, fit.report);
  command.footer(help(kFitFooterText) + help.OfInputs());
}

void AddCompare(CLI::App& app, CompareOptions& compare, GeneralOptions& general, const Help& help) {
  CLI::App& command =
      AddFilesCommand(app, "compare", "fit all models and rank them", compare.inputs);
  command.add_option("--models", compare.models, "models to compare (default all)")
      ->type_name("all|MODEL,...");
  AddSeed(command, compare.seed);
  AddDigits(command, compare.allDigits);
  AddThreads(command, compare.threads);
  command.add_flag("--progress", compare.progress, "print a line after every model");
  AddJson(command, compare.json);
  AddPrinted(command, general);
  AddReport(command, compare.report);
  command.footer(help(kCompareFooterText));
}

void AddChart(CLI::App& app, ChartOptions& chart, const Help& help) {
  CLI::App& command = *app.add_subcommand("chart", "draw experiments and models for publication");
  AddExperiments(command, chart.inputs.experiments);
  command.add_option("CONDITIONS", chart.inputs.conditions, "conditions file")
      ->type_name("FILE.abr");
  command.add_option("-o,--output", chart.output, "file to write, - for standard output")
      ->required()
      ->type_name("FILE.svg|.pdf|.png");
  command
      .add_option("--format", chart.format,
                  "format (default: as the name's end tells; svg on standard output)")
      ->check(CLI::IsMember({kChartFormats[0], kChartFormats[1], kChartFormats[2]}).description(""))
      ->type_name("svg|pdf|png");
  command.add_option("--kind", chart.kind, "what is drawn (default curves)")
      ->check(CLI::IsMember({kChartKinds[0], kChartKinds[1], kChartKinds[2], kChartKinds[3]})
                  .description(""))
      ->type_name("curves|residuals|parity|profile");
  AddModelAndValues(command, chart.inputs);
  AddFitted(command, chart.inputs.fit);
  command.add_flag("--as-given", chart.asGiven, "draw the conditions' own values, without a fit")
      ->excludes("--fit");
  AddSeed(command, chart.seed);
  AddThreads(command, chart.threads);
  AddJson(command, chart.json);
  command.add_flag("--log", chart.logarithmic, "logarithmic concentrations, of curves");
  command.add_option("--title", chart.title, "title above the charts")->type_name("TEXT");
  command.add_option("--width", chart.width, "width in mm (default 160)")
      ->check(CLI::Range(20.0, 500.0).description(""))
      ->type_name("NUMBER");
  command.add_option("--height", chart.height, "height in mm (default: what the charts need)")
      ->check(CLI::Range(20.0, 1000.0).description(""))
      ->type_name("NUMBER");
  command.add_option("--dpi", chart.dpi, "pixels an inch, of PNG (default 300)")
      ->check(CLI::Range(50.0, 600.0).description(""))
      ->type_name("NUMBER");
  command.footer(help(kChartFooterText));
}

void AddCurves(CLI::App& command, CurveOptions& curves) {
  AddJson(command, curves.json);
  command.add_option("--format", curves.format, "print CSV, TSV or JSON with all digits")
      ->check(CLI::IsMember({"csv", "tsv", "json"}).description(""))
      ->type_name("csv|tsv|json");
  command
      .add_option("--points", curves.points,
                  "points of each curve, on the straight lines between the 100 computed")
      ->check(CLI::Range(2, 1'000'000).description(""))
      ->type_name("NUMBER");
}

void AddBatch(CLI::App& app, BatchOptions& batch, const Help& help) {
  CLI::App* command = app.add_subcommand("batch", "run many commands from a list");
  command->add_option("LIST", batch.list, "one JSON object in each line")
      ->required()
      ->type_name("FILE.jsonl");
  command->add_option("--shard", batch.shard, "run only the K-th of N parts of the list")
      ->type_name("K/N");
  command->add_option("-o,--output", batch.output, "file for the results, kept and continued")
      ->type_name("FILE.jsonl");
  command->footer(help(kBatchFooterText));
}

void AddSimulations(CLI::App& app, Options& options, const Help& help) {
  CLI::App& simulate =
      AddCommand(app, "simulate", "integrate every experiment", options.simulate.inputs, help);
  AddCurves(simulate, options.simulate);
  AddPrinted(simulate, options.general);
  CLI::App& score =
      AddCommand(app, "score", "sum of squared errors at given values", options.score.inputs, help);
  AddJson(score, options.score.json);
  AddPrinted(score, options.general);
  CLI::App& exported = AddCommand(app, "export", "computed curves as text for spreadsheets",
                                  options.exported.inputs, help);
  AddCurves(exported, options.exported);
  AddPrinted(exported, options.general);
}

/// The mark itself may stand for its name.
CLI::Validator NamedMarks() {
  const std::map<std::string, std::string> names = {
      {".", "point"}, {",", "comma"}, {" ", "blank"}, {"'", "apostrophe"}};
  return CLI::Transformer(names).description("");
}

void AddImport(CLI::App& app, ImportOptions& import, const Help& help) {
  CLI::App* command = app.add_subcommand("import", "make an experiment file from tables");
  command->add_option("TABLE", import.tables, "tables, text (CSV) or Excel workbooks (.xlsx)")
      ->required()
      ->type_name("FILE.csv|FILE.xlsx");
  AddJson(*command, import.json);
  AddOutput(*command, import.output);
  AddRepeated(*command, "--only", import.only, "keep only this experiment (may be repeated)")
      ->type_name("LABEL");
  command->add_option("--sheet", import.sheet, "sheet of a workbook (default the first)")
      ->type_name("NAME");
  command->add_option("--decimal", import.decimal, "decimal mark of the numbers")
      ->check(CLI::IsMember({"point", "comma"}).description(""))
      ->transform(NamedMarks())
      ->type_name("point|comma");
  command->add_option("--thousands", import.thousands, "mark between the thousands of a number")
      ->check(CLI::IsMember({"point", "comma", "blank", "apostrophe", "none"}).description(""))
      ->transform(NamedMarks())
      ->type_name("point|comma|blank|apostrophe|none");
  command->add_option("--columns", import.columns, "columns by header or by place from 1")
      ->type_name("NAME=COLUMN,...");
  AddRepeated(*command, "--unit", import.units, "unit of a column")->type_name("NAME=UNIT");
  AddRepeated(*command, "--molar-mass", import.molarMasses, "g/mol of a column in mM")
      ->type_name("NAME=VALUE");
  command->add_option("--missing", import.missing, "what becomes of a row that lacks Cs, Cx or Cp")
      ->check(CLI::IsMember({"drop-row", "interpolate"}).description(""))
      ->type_name("drop-row|interpolate");
  command->footer(help(kImportFooterText));
}

void AddConditions(CLI::App& app, ConditionsOptions& conditions, const Help& help) {
  CLI::App* command = app.add_subcommand("conditions", "make a conditions file for experiments");
  AddExperiments(*command, conditions.experiments);
  command->add_option("--model", conditions.model, "growth model")->required()->type_name("MODEL");
  command
      ->add_option("--product", conditions.product,
                   "production: associated with growth (PAC), partially (PPAC), not (PNAC);\n"
                   "needed without --propose")
      ->check(CLI::IsMember({"PAC", "PPAC", "PNAC"}).description(""))
      ->type_name("PAC|PPAC|PNAC");
  command->add_option("--yields", conditions.yields, "yield coefficients; needed without --propose")
      ->check(CLI::IsMember({"global", "stoichiometric"}).description(""))
      ->type_name("global|stoichiometric");
  command
      ->add_option("--method", conditions.method,
                   "Levenberg-Marquardt (LM, default), differential evolution (ED), or simulate\n"
                   "only (Manual)")
      ->check(CLI::IsMember({"LM", "ED", "Manual"}).description(""))
      ->type_name("LM|ED|Manual");
  AddRepeated(*command, "--set", conditions.set, "a value")->type_name("[PLACE:]NAME=VALUE");
  AddFitted(*command, conditions.fit);
  AddJson(*command, conditions.json);
  command->add_flag("--propose", conditions.propose,
                    "propose from the data what is not given, and print why");
  AddOutput(*command, conditions.output);
  command->callback([command, &conditions] {
    for (const char* const option : {"--product", "--yields"})
      if (!conditions.propose && command->count(option) == 0) throw CLI::RequiredError(option);
  });
  command->footer(help(kConditionsFooterText) + ConditionNames() + help(kConditionsRulesText));
}

void AddAll(CLI::App& app, Options& options, const Help& help) {
  app.require_subcommand(1);
  app.fallthrough();
  app.footer(help(kFooterText));
  app.set_version_flag("--version", "velmora-cli " VELMORA_VERSION);
  // Hidden: what the manual pages and the completions are made from.
  app.add_flag_callback("--describe", [&app] { throw CLI::CallForVersion(DescriptionOf(app), 0); })
      ->group("");
  app.add_option("--language", options.language, "language of texts and messages")
      ->check(CLI::IsMember({"en", "pt"}).description(""))
      ->type_name("en|pt");
  app.add_option("--limit", options.limit, "most that is read of a file, in MB (default 64)")
      ->check(CLI::Range(1e-6, 1e6).description(""))
      ->type_name("MB");
  app.add_flag("--quiet", options.general.quiet, "say nothing beside results and errors");
  CLI::App& models = *app.add_subcommand("models", "list the 32 growth models");
  AddJson(models, options.models.json);
  AddPrinted(models, options.general);
  AddSimulations(app, options, help);
  AddFit(app, options.fit, options.general, help);
  AddCompare(app, options.compare, options.general, help);
  AddChart(app, options.chart, help);
  CLI::App* check = app.add_subcommand("check", "tell what a file is and what it holds");
  check->add_option("FILE", options.check.file, "experiment or conditions file")
      ->required()
      ->type_name("FILE.abr");
  AddJson(*check, options.check.json);
  AddPrinted(*check, options.general);
  check->footer(help(kCheckFooterText));
  AddImport(app, options.import, help);
  AddConditions(app, options.conditions, help);
  AddBatch(app, options.batch, help);
}

Command Chosen(const std::string& name, Options& options) {
  if (name == "simulate") return options.simulate;
  if (name == "score") return options.score;
  if (name == "fit") return options.fit;
  if (name == "compare") return options.compare;
  if (name == "chart") return options.chart;
  if (name == "export") return options.exported;
  if (name == "check") return options.check;
  if (name == "import") return options.import;
  if (name == "conditions") return options.conditions;
  if (name == "batch") return options.batch;
  return options.models;
}

/// The files that a command reads.
std::vector<std::string> InputsOf(const Command& command) {
  const auto inputs = [](const auto& options) -> std::vector<std::string> {
    if constexpr (requires { options.inputs; })
      return {options.inputs.experiments, options.inputs.conditions};
    else if constexpr (requires { options.file; })
      return {options.file};
    else if constexpr (requires { options.list; })
      return {options.list};
    else
      return {};
  };
  return std::visit(inputs, command);
}

/// The parser only misses a command where it meets a word that is none.
std::string WhatIsWrong(const CLI::App& app, const CLI::ParseError& error, const Wording& say) {
  const bool word = app.get_subcommands().empty() && app.remaining_size() > 0;
  if (word) return say(TextId::NoSuchCommand, {app.remaining().front()}) + say(TextId::SeeHelp);
  const std::string message = error.what();
  return (say.In() == Language::Portuguese ? ParserMessageInPortuguese(message) : message) +
         say(TextId::SeeHelp);
}

/// What can be told before the command line is understood: how an error is to be said.
GeneralOptions FirstLook(const std::vector<std::string>& arguments) {
  GeneralOptions general;
  const auto given = [&](const char* argument) {
    return std::find(arguments.begin(), arguments.end(), argument) != arguments.end();
  };
  general.json = given("--json");
  const auto language = std::adjacent_find(arguments.begin(), arguments.end(),
                                           [](const std::string& option, const std::string& value) {
                                             return option == "--language" && value == "pt";
                                           });
  if (language != arguments.end() || given("--language=pt"))
    general.language = Language::Portuguese;
  general.arguments = arguments;
  return general;
}

}  // namespace

Arguments ParseArguments(int argc, const char* const* argv) {
  Options options;
  options.general = FirstLook({argv + 1, argv + argc});
  const Help help(options.general.language);
  CLI::App app(help(kAboutText), "velmora-cli");
  AddAll(app, options, help);
  help.Translate(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    return {options.general, {}, HelpOptions{app.help()}};
  } catch (const CLI::CallForVersion& version) {
    return {options.general, {}, HelpOptions{std::string(version.what()) + "\n"}};
  } catch (const CLI::ParseError& error) {
    throw UsageError{options.general, WhatIsWrong(app, error, Wording(options.general.language))};
  }
  constexpr double kMegabyte = 1e6;
  options.general.limit = static_cast<std::size_t>(options.limit * kMegabyte);
  Command command = Chosen(app.get_subcommands().front()->get_name(), options);
  return {options.general, InputsOf(command), std::move(command)};
}

}  // namespace velmora::cli

// The only unit that includes the JSON library, which takes seconds to compile.
#include "cli/Json.h"

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>

#include "cultivation/FitSetUp.h"
#include "estimation/ResultTexts.h"
#include "inference/ComparisonTexts.h"
#include "inference/VerdictTexts.h"
#include "language/Numbers.h"

namespace velmora::cli {
namespace {

using Json = nlohmann::ordered_json;

/// The library writes 5 as 5.0 and not every number in its shortest form: numbers are written here.
void Append(const Json& value, std::string& text) {
  if (value.is_number()) return void(text += ShortestText(value.get<double>()));
  if (value.is_primitive()) return void(text += value.dump());
  const char* separator = "";
  text += value.is_array() ? '[' : '{';
  for (const auto& [name, member] : value.items()) {
    text += separator;
    if (value.is_object()) text += Json(name).dump() + ":";
    Append(member, text);
    separator = ",";
  }
  text += value.is_array() ? ']' : '}';
}

std::string LineOf(const Json& value) {
  std::string text;
  Append(value, text);
  return text + "\n";
}

Json OrNull(const std::optional<double>& value) {
  return value ? Json(*value) : Json();
}

Json IntervalOf(const Intervals& intervals, std::size_t j) {
  const Interval& interval = intervals.of[j];
  Json line = {{"method", NameOf(intervals.method)},
               {"level", kIntervalLevel},
               {"lower", OrNull(interval.lower)},
               {"upper", OrNull(interval.upper)}};
  if (intervals.method == IntervalMethod::Bootstrap) line["replicates"] = intervals.replicates;
  if (intervals.method != IntervalMethod::Profile) return line;
  Json points = Json::array();
  for (const auto& [value, score] : interval.profile)
    points.push_back({{"value", value}, {"score", score}});
  line["profile"] = points;
  return line;
}

Json VerdictOf(const ParameterVerdict& verdict, const Wording& say) {
  return {{"kind", NameOf(verdict)}, {"text", Worded(verdict, {say.In(), '.'})}};
}

Json VerdictOf(const FitVerdict& verdict, const FitProblem& problem, const Wording& say) {
  std::string text;
  for (const auto& line : RunVerdictLines(verdict, problem, {say.In(), '.'})) Join(text, line, " ");
  Json trends = Json::array(), worst;
  for (const auto& [place, variable, runs, points, probability] : verdict.trends)
    trends.push_back({{"place", place},
                      {"variable", variable},
                      {"runs", runs},
                      {"points", points},
                      {"probability", probability}});
  if (verdict.worst)
    worst = {{"place", verdict.worst->place},         {"variable", verdict.worst->variable},
             {"time", verdict.worst->time},           {"measured", verdict.worst->measured},
             {"simulated", verdict.worst->simulated}, {"multiple", verdict.worst->multiple}};
  return {
      {"kind", NameOf(verdict.kind)}, {"text", text}, {"notRandom", trends}, {"worstPoint", worst}};
}

Json ParameterOf(const EndedFit& fit, std::size_t j, const Wording& say) {
  const auto& [position, lower, upper, start] = fit.problem.variables[j];
  const Parameter& parameter = ParameterAt(position);
  Json line = {{"name", parameter.name},
               {"label", parameter.label},
               {"position", static_cast<int>(position)},
               {"start", start},
               {"lower", lower},
               {"upper", upper},
               {"value", fit.result.best[j]},
               {"deviation", fit.deviations.fault ? Json() : Json(fit.deviations.values[j])},
               {"verdict", VerdictOf(fit.verdict.parameters.of[j], say)}};
  if (fit.intervals.empty()) return line;
  line["interval"] = IntervalOf(fit.intervals.front(), j);
  line["intervals"] = Json::array();
  for (const Intervals& intervals : fit.intervals)
    line["intervals"].push_back(IntervalOf(intervals, j));
  return line;
}

std::string_view NameOf(SearchEnd end) {
  if (end == SearchEnd::Converged) return "converged";
  if (end == SearchEnd::Fault) return "fault";
  if (end == SearchEnd::EvaluationLimit) return "evaluation limit";
  return end == SearchEnd::Stopped ? "stopped" : "generation limit";
}

Json Finite(double value) {
  return std::isfinite(value) ? Json(value) : Json();
}

Json RankedOf(const ComparedModel& compared, const Wording& say) {
  Json parameters = Json::array();
  for (std::size_t j = 0; j < compared.variables.size(); ++j) {
    const auto& [position, lower, upper, start] = compared.variables[j];
    parameters.push_back(
        {{"name", ParameterAt(position).name},
         {"start", start},
         {"lower", lower},
         {"upper", upper},
         {"value", compared.result.best[j]},
         {"deviation", compared.deviations.empty() ? Json() : Json(compared.deviations[j])},
         {"verdict", VerdictOf(compared.verdicts.of[j], say)}});
  }
  const auto& [Cx, Cs, Cp] = compared.explained;
  return {{"model", compared.model->name},
          {"equation", Equation(*compared.model)},
          {"parameters", parameters},
          {"sumOfSquaredErrors", compared.result.score},
          {"aicc", Finite(compared.criterion)},
          {"weight", compared.weight},
          {"rSquared", {{"Cx", Finite(Cx)}, {"Cs", Finite(Cs)}, {"Cp", Finite(Cp)}}},
          {"starts", compared.result.starts},
          {"agreeing", compared.result.agreeing},
          {"functionCalls", compared.result.functionCalls},
          {"outcome", NameOf(compared.result.end)}};
}

Json ValuesOf(const EstimationSettings& settings) {
  return {{"NPOP", settings.NPOP}, {"ITER", settings.ITER},   {"PCROS", settings.PCROS},
          {"FACT", settings.FACT}, {"FACT1", settings.FACT1}, {"EPS", settings.EPS}};
}

Json MadeBy(const Provenance& made) {
  Json command = Json::array(), files = Json::array();
  for (const std::string& word : made.command) command.push_back(word);
  for (const auto& [path, bytes, sha256] : made.files)
    files.push_back({{"path", path}, {"bytes", bytes}, {"sha256", sha256}});
  Json json = {{"program", "velmora-cli"},
               {"version", VELMORA_VERSION},
               {"command", command},
               {"files", files}};
  if (!made.model.empty()) json["model"] = made.model;
  if (made.settings) json["settings"] = ValuesOf(*made.settings);
  if (made.seed) json["seed"] = *made.seed;
  json["threads"] = made.threads;
  json["vectorWidth"] = made.vectorWidth;
  if (made.start)
    json["seconds"] = std::chrono::duration<double>(Provenance::Clock::now() - *made.start).count();
  return json;
}

/// In the order of RemarkKind.
std::string_view NameOf(RemarkKind kind) {
  static constexpr std::array<std::string_view, 15> kNames = {"falling cells",
                                                              "rising substrate",
                                                              "product before growth",
                                                              "yield too high",
                                                              "first sample late",
                                                              "times unsorted",
                                                              "final time early",
                                                              "far off",
                                                              "looks like percent",
                                                              "too concentrated",
                                                              "looks like minutes",
                                                              "looks like days",
                                                              "negative time",
                                                              "negative value",
                                                              "no duration"};
  return kNames.at(static_cast<std::size_t>(kind));
}

}  // namespace

std::string JsonOf(const Failure& failure) {
  const auto& [file, line, column] = failure.place;
  return LineOf({{"error",
                  {{"code", static_cast<int>(failure.code)},
                   {"message", failure.line},
                   {"file", file.empty() ? Json() : Json(file)},
                   {"line", line == 0 ? Json() : Json(line)},
                   {"column", column.empty() ? Json() : Json(column)}}}});
}

std::string JsonOf(const EndedFit& fit, const Wording& say) {
  const SearchResult& result = fit.result;
  const int observations = fit.deviations.observations;
  Json parameters = Json::array();
  for (std::size_t j = 0; j < fit.problem.variables.size(); ++j)
    parameters.push_back(ParameterOf(fit, j, say));
  Json line = {{"parameters", parameters},
               {"startScore", result.startScore},
               {"sumOfSquaredErrors", result.score},
               {"squareError", SquareError(result.score, observations)},
               {"functionCalls", result.functionCalls},
               {"generations", result.generations},
               {"outcome", NameOf(result.end)},
               {"method", NameOf(fit.method)},
               {"observations", observations},
               {"degreesOfFreedom", fit.deviations.degreesOfFreedom},
               {"verdict", VerdictOf(fit.verdict, fit.problem, say)}};
  if (result.starts > 0) {
    line["starts"] = result.starts;
    line["agreeing"] = result.agreeing;
  }
  if (result.fault) {
    line["fault"] = fit.fault;
    line["bestGeneration"] = result.bestGeneration;
  }
  for (const Intervals& intervals : fit.intervals)
    if (intervals.betterScore) line["betterScore"] = *intervals.betterScore;
  if (!fit.remark.empty()) line["remark"] = fit.remark;
  line["made"] = MadeBy(fit.made);
  return LineOf(line);
}

std::string JsonOf(const Generation& generation, std::span<const FitVariable> variables) {
  Json values = Json::object();
  for (std::size_t j = 0; j < variables.size(); ++j)
    values[std::string(ParameterAt(variables[j].position).name)] = generation.best[j];
  return LineOf({{"progress",
                  {{"number", generation.number},
                   {"sumOfSquaredErrors", generation.score},
                   {"functionCalls", generation.functionCalls},
                   {"values", values}}}});
}

std::string JsonOfCharts(const std::string& output, std::size_t charts, const char* format,
                         const Provenance& made) {
  return LineOf(
      {{"written", output}, {"charts", charts}, {"format", format}, {"made", MadeBy(made)}});
}

std::string JsonOfComparison(std::size_t done, std::size_t models, double share) {
  return LineOf({{"progress", {{"done", done}, {"models", models}, {"share", share}}}});
}

std::string JsonOf(const SimulatedFit& fit, const ExperimentLists& lists, const Provenance& made) {
  Json experiments = Json::array();
  for (int place = 1; place <= lists.Count(); ++place) {
    const auto& [Cx, Cs, Cp] = fit.experiments.at(static_cast<std::size_t>(place) - 1).share;
    experiments.push_back(
        {{"place", place}, {"number", lists.At(place).number}, {"Cx", Cx}, {"Cs", Cs}, {"Cp", Cp}});
  }
  return LineOf({{"score", fit.score}, {"experiments", experiments}, {"made", MadeBy(made)}});
}

std::string JsonOf(const Comparison& comparison, const Inputs& inputs, const Provenance& made,
                   const Wording& say) {
  Json ranked = Json::array(), unranked = Json::array(), level = Json::array();
  for (const ComparedModel& compared : comparison.models) {
    if (compared.Ranked())
      ranked.push_back(RankedOf(compared, say));
    else
      unranked.push_back(
          {{"model", compared.model->name},
           {"reason", WhyNotRanked(compared, inputs.lists.Experiments(), say.In())}});
  }
  for (const ComparedModel& compared : comparison.Level()) level.push_back(compared.model->name);
  Json remarks = Json::array();
  for (const auto& line :
       ComparisonRemarks(comparison, inputs.lists.Experiments(), {say.In(), '.'}))
    remarks.push_back(line);
  return LineOf({{"values", comparison.values},
                 {"models", ranked},
                 {"notRanked", unranked},
                 {"notToldApart", level.size() > 1 ? level : Json::array()},
                 {"remarks", remarks},
                 {"made", MadeBy(made)}});
}

std::string JsonOf(const std::vector<PlacedCurve>& curves, const Provenance& made) {
  Json experiments = Json::array();
  for (const auto& [place, number, time, Cx, Cs, Cp] : curves)
    experiments.push_back(
        {{"place", place}, {"number", number}, {"time", time}, {"Cx", Cx}, {"Cs", Cs}, {"Cp", Cp}});
  return LineOf({{"experiments", experiments}, {"made", MadeBy(made)}});
}

namespace {

Json ListOf(const ExperimentLists& lists) {
  Json experiments = Json::array();
  for (int place = 1; place <= lists.Count(); ++place) {
    const Experiment& experiment = lists.At(place);
    experiments.push_back({{"place", place},
                           {"number", experiment.number},
                           {"points", experiment.Points()},
                           {"finalTime", experiment.finalTime},
                           {"description", experiment.description}});
  }
  return experiments;
}

Json ListOf(const std::vector<Remark>& remarks, const Wording& say) {
  Json told = Json::array();
  for (const Remark& remark : remarks)
    told.push_back({{"kind", NameOf(remark.kind)},
                    {"place", remark.place},
                    {"number", remark.number},
                    {"row", remark.row},
                    {"variable", remark.variable},
                    {"values", remark.values},
                    {"text", Worded(remark, say.In())}});
  return told;
}

}  // namespace

std::string JsonOf(const ExperimentLists& lists, const std::vector<Remark>& remarks,
                   const Wording& say) {
  return LineOf(
      {{"file", "experiments"}, {"experiments", ListOf(lists)}, {"remarks", ListOf(remarks, say)}});
}

std::string JsonOfModels() {
  Json models = Json::array();
  for (const Model& model : kModels) {
    Json parameters = Json::array();
    for (const Parameter& parameter : kFittable)
      if (Uses(model, parameter.position)) parameters.push_back(parameter.name);
    models.push_back(
        {{"name", model.name}, {"parameters", parameters}, {"equation", Equation(model)}});
  }
  return LineOf({{"models", models}});
}

std::string JsonOf(const TableRead& read, const std::vector<std::string>& tables,
                   const std::string& output, const Wording& say) {
  Json told = Json::array();
  for (const TableFault& remark : read.remarks)
    told.push_back({{"file", tables[remark.table]},
                    {"line", remark.line == 0 ? Json() : Json(remark.line)},
                    {"row", remark.row == 0 ? Json() : Json(remark.row)},
                    {"column", remark.column.empty() ? Json() : Json(remark.column)},
                    {"text", FaultReason(remark, say.In())}});
  return LineOf({{"written", output},
                 {"experiments", ListOf(read.lists)},
                 {"told", told},
                 {"remarks", ListOf(CheckPossible(read.lists.Experiments()), say)}});
}

std::string JsonOf(int experiments, const std::vector<ProposedValue>& values,
                   const std::vector<ProposedRange>& ranges, const std::string& output,
                   const Wording& say) {
  Json proposed = Json::array(), fitted = Json::array();
  for (const auto& [position, value, reason, place] : values)
    proposed.push_back({{"place", place == 0 ? Json() : Json(place)},
                        {"name", ParameterAt(position).name},
                        {"value", value},
                        {"reason", Worded(reason, say.In())}});
  for (const auto& [range, reason] : ranges)
    fitted.push_back({{"name", ParameterAt(range.position).name},
                      {"start", range.start},
                      {"lower", range.lower},
                      {"upper", range.upper},
                      {"reason", Worded(reason, say.In())}});
  return LineOf({{"written", output},
                 {"experiments", experiments},
                 {"proposed", proposed},
                 {"proposedFit", fitted}});
}

std::string JsonOf(const ConditionsRead& read) {
  Json conditions = Json::array();
  for (int place = 1; place <= read.experiments; ++place) {
    const ConditionsRecord& record = read.conditions.At(place);
    conditions.push_back({{"place", place},
                          {"number", record.number},
                          {"model", ModelNames(record, read.conditions.fitted)},
                          {"method", record.options.method},
                          {"production", record.options.production}});
  }
  Json fitted = Json::array();
  for (const auto& [position, lower, upper, start] :
       StartingFrom(read.conditions.At(1).row, read.conditions.fitted))
    fitted.push_back({{"name", ParameterAt(position).name},
                      {"start", start},
                      {"lower", lower},
                      {"upper", upper}});
  return LineOf({{"file", "conditions"}, {"conditions", conditions}, {"fitted", fitted}});
}

}  // namespace velmora::cli

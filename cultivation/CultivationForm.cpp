#include "cultivation/CultivationForm.h"

#include <algorithm>

namespace velmora {
namespace {

constexpr int kAlfaDecimals = 4;

/// The ticks that an option text stands for; all of them where it names no variable.
std::array<bool, 3> DataSetOf(std::string_view text) {
  std::array<bool, 3> ticked{};
  bool known = text.empty();
  for (std::size_t i = 0; i < ticked.size(); ++i) {
    ticked[i] = text.find(kVariableNames[i]) != std::string_view::npos;
    known = known || ticked[i];
  }
  return known ? ticked : std::array{true, true, true};
}

}  // namespace

std::string_view NameOf(Method method) {
  switch (method) {
    case Method::Manual:
      return "Manual";
    case Method::ED:
      return "ED";
    case Method::LM:
      return "LM";
    case Method::None:
      break;
  }
  return "";
}

std::string_view NameOf(Production production) {
  switch (production) {
    case Production::PAC:
      return "PAC";
    case Production::PPAC:
      return "PPAC";
    case Production::PNAC:
      return "PNAC";
    case Production::None:
      break;
  }
  return "";
}

Method MethodNamed(std::string_view name) {
  for (const Method method : {Method::Manual, Method::ED, Method::LM})
    if (NameOf(method) == name) return method;
  return Method::None;
}

Production ProductionNamed(std::string_view name) {
  for (const Production production : {Production::PAC, Production::PPAC, Production::PNAC})
    if (NameOf(production) == name) return production;
  return Production::None;
}

Entry ShownAlfa(const ConditionsRow& row, char separator) {
  return {PlainText(RoundHalfEven(row[At::alpha], kAlfaDecimals), separator), row[At::alpha]};
}

Yields YieldsOf(const ConditionsRow& row) {
  if (row[At::Fp] == 0) return Yields::Global;
  return row[At::Fp] == 1 ? Yields::Stoichiometric : Yields::None;
}

Entry Shown(At position, double value, char separator) {
  if (position >= At::muMax && position <= At::Kip)
    return {Formatted(value, kTwoToFour, separator), value};
  if (position >= At::CxAst && position <= At::v)
    return {Formatted(value, kOneToFour, separator), value};
  return Entry::Of(value, separator);
}

CultivationForm FormOf(const ConditionsRecord& record, const std::vector<FitVariable>& fitted,
                       char separator) {
  CultivationForm form;
  for (const Parameter& parameter : kParameters)
    if (IsEntered(parameter.position))
      form.At(parameter.position) =
          Shown(parameter.position, record.row[parameter.position], separator);
  form.method = MethodNamed(record.options.method);
  form.production = ProductionNamed(record.options.production);
  form.yields = YieldsOf(record.row);
  if (form.yields == Yields::Global) form.At(At::alpha) = ShownAlfa(record.row, separator);
  form.model = record.options.model;
  form.dataSet = DataSetOf(record.options.dataSet);
  for (const auto& [position, lower, upper, start] : fitted)
    form.fit[static_cast<std::size_t>(FittableIndex(position))] = {
        true, Entry::Of(lower, separator), Entry::Of(upper, separator)};
  return form;
}

std::vector<std::pair<At, Entry>> SuggestedEntries(const Experiment& experiment, char separator) {
  std::vector<std::pair<At, Entry>> entries;
  const auto suggest = [&](At position, double value) {
    entries.emplace_back(position, Entry::Of(value, separator));
  };
  if (experiment.Points() > 0) {
    const auto earliest = std::min_element(experiment.time.begin(), experiment.time.end());
    const auto first = static_cast<std::size_t>(earliest - experiment.time.begin());
    suggest(At::Cx0, experiment.Cx[first]);
    suggest(At::Cs0, experiment.Cs[first]);
    suggest(At::Cp0, experiment.Cp[first]);
  }
  suggest(At::T, experiment.finalTime);
  return entries;
}

bool SameEntries(const CultivationForm& left, const CultivationForm& right) {
  return left.boxes == right.boxes && left.method == right.method &&
         left.production == right.production && left.yields == right.yields &&
         left.dataSet == right.dataSet && left.model == right.model && left.fit == right.fit;
}

}  // namespace velmora

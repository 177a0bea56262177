#include "help/GuideText.h"

#include <charconv>
#include <stdexcept>

#include "kinetics/Modelos.h"

namespace velmora {
namespace {

std::string ParameterNames(const Model& model) {
  std::string names;
  for (const Parameter& parameter : kFittable) {
    if (!Uses(model, parameter.position)) continue;
    // The label without its "=": "µmáx", "Cp*".
    const std::string_view label = parameter.label.substr(0, parameter.label.find(' '));
    names += (names.empty() ? "" : ", ") + std::string(label);
  }
  return names;
}

std::string ModelRows() {
  std::string rows;
  for (const Model& model : kModels)
    rows += "<tr><td>" + Escaped(model.name) + "</td><td>" + Escaped(ParameterNames(model)) +
            "</td><td>" + Escaped(Equation(model)) + "</td></tr>\n";
  return rows;
}

std::string TextFor(std::string_view id, Language language) {
  std::int16_t number = 0;
  const auto [end, error] = std::from_chars(id.data(), id.data() + id.size(), number);
  if (error != std::errc{} || end != id.data() + id.size() || !HasText(TextId{number}))
    throw std::runtime_error("there is no text " + std::string(id));
  return Escaped(Text(TextId{number}, language));
}

std::string Replacement(std::string_view placeholder, Language language) {
  constexpr std::string_view kText = "text:";
  if (placeholder == "models") return ModelRows();
  if (placeholder.starts_with(kText)) return TextFor(placeholder.substr(kText.size()), language);
  throw std::runtime_error("unknown placeholder {" + std::string(placeholder) + "}");
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&')
      escaped += "&amp;";
    else if (c == '<')
      escaped += "&lt;";
    else if (c == '>')
      escaped += "&gt;";
    else
      escaped += c;
  }
  return escaped;
}

std::string FilledGuide(const std::string& html, Language language) {
  std::string filled;
  std::size_t from = 0;
  for (std::size_t open = html.find('{'); open != std::string::npos; open = html.find('{', from)) {
    const std::size_t close = html.find('}', open);
    if (close == std::string::npos) throw std::runtime_error("a placeholder has no end");
    filled += html.substr(from, open - from);
    filled += Replacement(std::string_view(html).substr(open + 1, close - open - 1), language);
    from = close + 1;
  }
  return filled + html.substr(from);
}

}  // namespace velmora

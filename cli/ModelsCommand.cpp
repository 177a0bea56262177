#include "cli/ModelsCommand.h"

#include "cli/Columns.h"
#include "cli/Inputs.h"

namespace velmora::cli {

ExitCode Run(const ModelsOptions&, const Console& console) {
  constexpr std::size_t kNameWidth = 24;
  constexpr std::size_t kParametersWidth = 39;
  const auto line = [](std::string_view name, std::string_view parameters, std::string_view rate) {
    return Left(name, kNameWidth) + Left(parameters, kParametersWidth) + std::string(rate) + "\n";
  };
  std::string text = line(console.say(TextId::ModelHeading), console.say(TextId::ParametersHeading),
                          console.say(TextId::EquationHeading));
  for (const Model& model : kModels)
    text += line(model.name, ParameterNames(model), Equation(model));
  console.Print(text);
  return ExitCode::Done;
}

}  // namespace velmora::cli

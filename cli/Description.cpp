#include "cli/Description.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <nlohmann/json.hpp>

#include "kinetics/Modelos.h"

namespace velmora::cli {
namespace {

using Json = nlohmann::ordered_json;

Json Described(const CLI::Option& option) {
  Json names = Json::array();
  for (const std::string& letter : option.get_snames()) names.push_back("-" + letter);
  for (const std::string& word : option.get_lnames()) names.push_back("--" + word);
  if (option.get_positional()) names.push_back(option.get_name(true));
  return {{"names", names},
          {"positional", option.get_positional()},
          {"required", option.get_required()},
          {"repeated", option.get_items_expected_max() > 1},
          {"value", option.get_type_name()},
          {"help", option.get_description()}};
}

Json Described(const CLI::App& command) {
  Json options = Json::array();
  for (const CLI::Option* const option : command.get_options())
    if (!option->get_group().empty()) options.push_back(Described(*option));
  return {{"name", command.get_name()},
          {"about", command.get_description()},
          {"options", options},
          {"footer", command.get_footer()}};
}

}  // namespace

std::string DescriptionOf(const CLI::App& app) {
  Json description = Described(app);
  description["version"] = VELMORA_VERSION;
  for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
    description["commands"].push_back(Described(*command));
  for (const auto& model : kModels) description["models"].push_back(model.name);
  return description.dump(1);
}

}  // namespace velmora::cli

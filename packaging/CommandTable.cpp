#include "packaging/CommandTable.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

namespace velmora::packaging {
namespace {

using Json = nlohmann::json;

/// The words of "ED|LM"; none where the value is described instead, as NUMBER or all|MODEL,... are.
std::vector<std::string> ChoicesOf(const std::string& value, const Json& models) {
  if (value == "MODEL") return models;
  std::vector<std::string> choices;
  if (value.find('|') == value.npos || value.find_first_of(",[=") != value.npos) return choices;
  std::istringstream words(value);
  for (std::string word; std::getline(words, word, '|');) choices.push_back(word);
  return choices;
}

Option OptionOf(const Json& json, const Json& models) {
  Option option{json.at("names"),
                json.at("positional"),
                json.at("required"),
                json.at("repeated"),
                json.at("value"),
                json.at("help"),
                {}};
  option.choices = ChoicesOf(option.value, models);
  return option;
}

Command CommandOf(const Json& json, const Json& models) {
  Command command{json.at("name"), json.at("about"), json.at("footer"), {}};
  for (const Json& option : json.at("options")) command.options.push_back(OptionOf(option, models));
  return command;
}

std::vector<Option> OptionsThatAre(bool positional, const std::vector<Option>& options) {
  std::vector<Option> chosen;
  std::copy_if(options.begin(), options.end(), std::back_inserter(chosen),
               [&](const Option& option) { return option.positional == positional; });
  return chosen;
}

}  // namespace

std::string Option::Suffix() const {
  return value.starts_with("FILE.") ? value.substr(value.find('.')) : "";
}

std::vector<Option> Command::Switches() const {
  return OptionsThatAre(false, options);
}

std::vector<Option> Command::Positionals() const {
  return OptionsThatAre(true, options);
}

CommandTable ReadCommandTable(const std::string& file) {
  std::ifstream in(file);
  const Json json = Json::parse(in);
  const Json& models = json.at("models");
  CommandTable table{CommandOf(json, models), json.at("version"), {}};
  for (const Json& command : json.at("commands"))
    table.commands.push_back(CommandOf(command, models));
  return table;
}

std::string OneLine(const std::string& text) {
  std::string line = text;
  std::replace(line.begin(), line.end(), '\n', ' ');
  while (!line.empty() && (line.back() == '.' || line.back() == ' ')) line.pop_back();
  return line;
}

}  // namespace velmora::packaging

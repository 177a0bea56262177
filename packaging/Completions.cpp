#include "packaging/Completions.h"

namespace velmora::packaging {
namespace {

std::string Joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

/// `text` with a backslash before each letter of `letters`.
std::string Guarded(const std::string& text, const char* letters) {
  std::string guarded;
  for (const char letter : text) {
    if (std::string(letters).find(letter) != std::string::npos) guarded += '\\';
    guarded += letter;
  }
  return guarded;
}

/// A word of a shell in single quotes; "'" ends them, stands guarded, and begins them anew.
std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char letter : text)
    quoted += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
  return quoted + "'";
}

std::vector<std::string> CommandNames(const CommandTable& table) {
  std::vector<std::string> names;
  for (const Command& command : table.commands) names.push_back(command.name);
  return names;
}

std::string OptionNames(const Command& command, const CommandTable& table) {
  std::string names;
  for (const Command* const of : {&command, &table.whole})
    for (const Option& option : of->Switches())
      for (const std::string& name : option.names)
        if ((" " + names + " ").find(" " + name + " ") == std::string::npos)
          names += (names.empty() ? "" : " ") + name;
  return names;
}

// Bash.

std::string BashValue(const Option& option) {
  if (!option.choices.empty()) return "_velmora_cli_words " + Quoted(Joined(option.choices, " "));
  if (!option.Suffix().empty()) return "_velmora_cli_files " + option.Suffix();
  return ":";
}

/// The values of the options of a command; "*" for those that may stand anywhere.
std::string BashValues(const Command& command, const std::string& pattern) {
  std::string cases;
  for (const Option& option : command.Switches()) {
    if (option.value.empty()) continue;
    std::vector<std::string> patterns;
    for (const std::string& name : option.names) patterns.push_back((pattern + ":").append(name));
    cases.append("    ").append(Joined(patterns, "|")).append(") ");
    cases.append(BashValue(option)).append("; return ;;\n");
  }
  return cases;
}

std::string BashWords(const Command& command, const CommandTable& table) {
  std::string cases = "    " + command.name + ":-*) _velmora_cli_words " +
                      Quoted(OptionNames(command, table)) + " ;;\n";
  if (!command.Positionals().empty())
    cases += "    " + command.name + ":*) " + BashValue(command.Positionals().front()) + " ;;\n";
  return cases;
}

constexpr const char* kBashHead = R"bash(# Completion of velmora-cli for bash.
_velmora_cli_words() {
  mapfile -t COMPREPLY < <(compgen -W "$1" -- "$current")
}

_velmora_cli_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -X "!*$1" -- "$current"; compgen -d -- "$current")
}

_velmora_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]} command= word
  COMPREPLY=()
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in
)bash";

// Zsh.

std::string ZshValue(const Option& option) {
  if (option.value.empty()) return "";
  std::string told = ":" + Guarded(option.value, ":") + ":";
  if (!option.choices.empty()) return told + "(" + Joined(option.choices, " ") + ")";
  if (!option.Suffix().empty()) return told + "_files -g \"*" + option.Suffix() + "\"";
  return told;
}

std::string ZshOption(const Option& option) {
  const std::string rest = "[" + Guarded(OneLine(option.help), "[]:") + "]" + ZshValue(option);
  if (option.names.size() == 1)
    return Quoted((option.repeated ? "*" : "") + option.names.front() + rest);
  return "'(" + Joined(option.names, " ") + ")'{" + Joined(option.names, ",") + "}" + Quoted(rest);
}

std::string ZshArguments(const Command& command) {
  std::string arguments;
  int place = 0;
  for (const Option& option : command.Switches()) arguments += " \\\n        " + ZshOption(option);
  for (const Option& option : command.Positionals())
    arguments += " \\\n        " + Quoted(std::to_string(++place) + ZshValue(option));
  return arguments;
}

// Fish.

std::string FishNames(const Option& option) {
  std::string names;
  for (const std::string& name : option.names)
    names += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  return names;
}

std::string FishValue(const Option& option) {
  if (!option.choices.empty()) return " -x -a " + Quoted(Joined(option.choices, " "));
  if (!option.Suffix().empty())
    return " -k -x -a " + Quoted("(__fish_complete_suffix " + option.Suffix() + ")");
  return option.value.empty() ? "" : " -x";
}

std::string FishOptions(const Command& command, const std::string& when) {
  std::string lines;
  for (const Option& option : command.Switches())
    lines += "complete -c velmora-cli" + when + FishNames(option) + FishValue(option) + " -d " +
             Quoted(OneLine(option.help)) + "\n";
  if (!command.Positionals().empty())
    lines += "complete -c velmora-cli" + when + FishValue(command.Positionals().front()) + "\n";
  return lines;
}

}  // namespace

std::string BashCompletion(const CommandTable& table) {
  const std::string commands = Joined(CommandNames(table), "|");
  std::string script = kBashHead;
  script += "      " + commands + ") command=$word; break ;;\n    esac\n  done\n";
  script += "  case $command:$previous in\n" + BashValues(table.whole, "*");
  for (const Command& command : table.commands) script += BashValues(command, command.name);
  script += "  esac\n  case $command:$current in\n    :-*) _velmora_cli_words " +
            Quoted(OptionNames({}, table)) + " ;;\n";
  for (const Command& command : table.commands) script += BashWords(command, table);
  return script + "    :*) _velmora_cli_words " + Quoted(Joined(CommandNames(table), " ")) +
         " ;;\n  esac\n}\ncomplete -F _velmora_cli velmora-cli\n";
}

std::string ZshCompletion(const CommandTable& table) {
  std::string script =
      "#compdef velmora-cli\n# Completion of velmora-cli for zsh.\n_velmora_cli() {\n"
      "  local line state\n  local -a commands=(\n";
  for (const Command& command : table.commands)
    script += "    " + Quoted(command.name + ":" + OneLine(command.about)) + "\n";
  script += "  )\n  _arguments -C" + ZshArguments(table.whole) +
            " \\\n        '1:command:->command' '*::argument:->argument'\n  case $state in\n"
            "    command) _describe command commands ;;\n    argument)\n      case $words[1] in\n";
  for (const Command& command : table.commands)
    script += "      " + command.name + ") _arguments" + ZshArguments(command) + " ;;\n";
  return script + "      esac ;;\n  esac\n}\n_velmora_cli \"$@\"\n";
}

std::string FishCompletion(const CommandTable& table) {
  std::string script = "# Completion of velmora-cli for fish.\ncomplete -c velmora-cli -f\n";
  script += FishOptions(table.whole, "");
  for (const Command& command : table.commands) {
    script += "complete -c velmora-cli -n __fish_use_subcommand -a " + command.name + " -d " +
              Quoted(OneLine(command.about)) + "\n";
    script += FishOptions(command, " -n '__fish_seen_subcommand_from " + command.name + "'");
  }
  return script;
}

}  // namespace velmora::packaging

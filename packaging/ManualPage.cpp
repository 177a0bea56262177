#include "packaging/ManualPage.h"

#include <sstream>

namespace velmora::packaging {
namespace {

/// A text as the typesetter prints it: hyphens as they are typed, no letter that commands it.
std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char letter : text) {
    if (letter == '\\')
      escaped += "\\e";
    else if (letter == '-')
      escaped += "\\-";
    else
      escaped += letter;
  }
  if (!escaped.empty() && (escaped[0] == '.' || escaped[0] == '\'')) escaped.insert(0, "\\&");
  return escaped;
}

std::string Bold(const std::string& text) {
  return "\\fB" + Escaped(text) + "\\fR";
}

std::string Italic(const std::string& text) {
  return "\\fI" + Escaped(text) + "\\fR";
}

std::string Capitals(std::string text) {
  for (char& letter : text)
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  return text;
}

/// Lines of a text: an indented block stands as it is, an empty line begins a paragraph.
std::string Paragraphs(const std::string& text) {
  std::istringstream lines(text);
  std::string page;
  bool verbatim = false, apart = false;
  for (std::string line; std::getline(lines, line);) {
    const bool indented = line.starts_with("  ");
    if (indented != verbatim) page += indented ? ".PP\n.nf\n" : ".fi\n";
    if (apart && !indented) page += ".PP\n";
    apart = line.empty() && !page.empty();
    verbatim = indented;
    if (!line.empty()) page += Escaped(line) + "\n";
  }
  return page + (verbatim ? ".fi\n" : "");
}

/// A remark of the program as a sentence of the page.
std::string Sentence(const std::string& remark) {
  std::string sentence = OneLine(remark) + ".";
  if (sentence[0] >= 'a' && sentence[0] <= 'z')
    sentence.replace(0, 1, Capitals(sentence.substr(0, 1)));
  return Escaped(sentence) + "\n";
}

bool AsksForHelp(const Option& option) {
  return option.names.back() == "--help";
}

std::string Heading(const Option& option) {
  std::string heading;
  for (const std::string& name : option.names)
    heading += (heading.empty() ? "" : ", ") + (option.positional ? Italic(name) : Bold(name));
  const bool told = option.value.empty() || option.positional;
  return heading + (told ? "" : " " + Italic(option.value));
}

std::string Explained(const Option& option, const ManualWords& words) {
  const bool must = option.required && !option.positional;
  return ".TP\n" + Heading(option) + "\n" +
         Sentence(option.help + (must ? std::string(" (") + words.required + ")" : ""));
}

/// How the command is called: what must be given, and whether there is more.
std::string Use(const Command& command, const ManualWords& words) {
  std::string use = Bold("velmora-cli") + " " + Bold(command.name);
  for (const Option& option : command.Positionals()) use += " " + Italic(option.names.front());
  for (const Option& option : command.Switches())
    if (option.required) use += " " + Bold(option.names.back()) + " " + Italic(option.value);
  return use + (command.Switches().empty() ? "" : " [" + Italic(words.option) + "...]");
}

/// Without what holds for all commands: the option --help and the closing words of the program.
std::string Section(const Command& command, const Command& whole, const ManualWords& words) {
  std::string page =
      ".SS " + command.name + "\n" + Use(command, words) + "\n.PP\n" + Sentence(command.about);
  for (const Option& option : command.options)
    if (!AsksForHelp(option)) page += Explained(option, words);
  if (!command.footer.empty() && command.footer != whole.footer)
    page += ".PP\n" + Paragraphs(command.footer);
  return page;
}

std::string Headed(const char* heading, const std::string& text) {
  return std::string(".SH ") + heading + "\n" + text;
}

}  // namespace

const ManualWords kEnglishManual = {"NAME",
                                    "SYNOPSIS",
                                    "DESCRIPTION",
                                    "OPTIONS",
                                    "COMMANDS",
                                    "SEE ALSO",
                                    "fit kinetic parameters of batch fermentations",
                                    "User Commands",
                                    "required",
                                    "COMMAND",
                                    "OPTION"};
const ManualWords kPortugueseManual = {"NOME",
                                       "SINOPSE",
                                       "DESCRIÇÃO",
                                       "OPÇÕES",
                                       "COMANDOS",
                                       "VEJA TAMBÉM",
                                       "ajusta parâmetros cinéticos de fermentações em batelada",
                                       "Comandos do usuário",
                                       "obrigatório",
                                       "COMANDO",
                                       "OPÇÃO"};

std::string ManualPage(const CommandTable& table, const ManualWords& words,
                       const std::string& date) {
  const std::string& name = table.whole.name;
  std::string page = ".TH " + Capitals(name) + " 1 " + date + " \"Velmora " + table.version +
                     "\" \"" + words.volume + "\"\n";
  page += Headed(words.name, name + " \\- " + words.purpose + "\n");
  page += Headed(words.synopsis,
                 Bold(name) + " " + Italic(words.command) + " [" + Italic(words.option) + "...]\n");
  page += Headed(words.description, Paragraphs(table.whole.about + "\n" + table.whole.footer));
  page += Headed(words.options, "");
  for (const Option& option : table.whole.options) page += Explained(option, words);
  page += Headed(words.commands, "");
  for (const Command& command : table.commands) page += Section(command, table.whole, words);
  return page + Headed(words.seeAlso, Bold("velmora") + "(1)\n");
}

}  // namespace velmora::packaging

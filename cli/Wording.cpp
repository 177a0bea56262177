#include "cli/Wording.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace velmora::cli {
namespace {

struct Entry {
  Phrase phrase;
  Bilingual text;
};

constexpr auto kPhrases = std::to_array<Entry>({
    {Phrase::NotANumber,
     {"{1}: \"{2}\" is not a number; write it with a decimal point, such as 0.8",
      "{1}: \"{2}\" não é um número; escreva-o com ponto decimal, como 0.8"}},
    {Phrase::DecimalComma,
     {"{1}: \"{2}\" has a comma; write the number with a decimal point, such as 0.8",
      "{1}: \"{2}\" tem uma vírgula; escreva o número com ponto decimal, como 0.8"}},
    {Phrase::Negative,
     {"{1}: \"{2}\" is negative; give a value of 0 or more",
      "{1}: \"{2}\" é negativo; dê um valor igual ou maior que 0"}},
    {Phrase::Malformed, {"{1}: \"{2}\" should read {3}", "{1}: \"{2}\" deve ter a forma {3}"}},
    {Phrase::UnknownName,
     {"{1}: there is no parameter \"{2}\"; the names are {3}",
      "{1}: não existe o parâmetro \"{2}\"; os nomes são {3}"}},
    {Phrase::UnknownModel,
     {"there is no model \"{1}\"; \"velmora-cli models\" lists the models",
      "não existe o modelo \"{1}\"; \"velmora-cli models\" lista os modelos"}},
    {Phrase::NoSuchPlace,
     {"--set: \"{1}\" names place {2}, but the file has {3} experiment(s)",
      "--set: \"{1}\" indica a posição {2}, mas o arquivo tem {3} experimento(s)"}},
    {Phrase::SetAndFitted,
     {"{1} is both set and fitted; its start value stands in --fit",
      "{1} é fixado e ajustado ao mesmo tempo; o valor inicial fica em --fit"}},
    {Phrase::FittedTwice, {"--fit: {1} is given twice", "--fit: {1} aparece duas vezes"}},
    {Phrase::FitWithManual,
     {"--fit needs the method ED; the method Manual only simulates",
      "--fit requer o método ED; o método Manual apenas simula"}},
    {Phrase::SameFile,
     {"the output {1} is the input file; choose another name",
      "a saída {1} é o arquivo de entrada; escolha outro nome"}},
    {Phrase::SeeHelp, {"; see --help", "; veja --help"}},
    {Phrase::NoSuchCommand, {"there is no command \"{1}\"", "não existe o comando \"{1}\""}},

    {Phrase::ModelLacks,
     {"the model {1} has no parameter {2}; its parameters are {3}",
      "o modelo {1} não tem o parâmetro {2}; seus parâmetros são {3}"}},
    {Phrase::ValueMissing,
     {"the model {1} needs {2}: give --set {2}=VALUE or --fit {2}=START:LOWER:UPPER",
      "o modelo {1} precisa de {2}: dê --set {2}=VALOR ou --fit {2}=INICIAL:INFERIOR:SUPERIOR"}},
    {Phrase::AlfaDecided,
     {"Alfa cannot be set here: global yields make it Yps/Yxs, and PNAC makes it 0",
      "Alfa não pode ser fixado aqui: com rendimentos globais vale Yps/Yxs e com PNAC vale 0"}},
    {Phrase::BetaNotOffered,
     {"{1} cannot be set with PAC, where production goes with growth alone",
      "{1} não pode ser fixado com PAC, em que a produção só acompanha o crescimento"}},
    {Phrase::TooManyExperiments,
     {"the file has {1} experiments; at most {2} take part in a cultivation",
      "o arquivo tem {1} experimentos; um cultivo admite no máximo {2}"}},
    {Phrase::NumbersDiffer,
     {"place {1}: the experiment has the number {2} but its conditions have {3}; "
      "the two files do not belong together",
      "posição {1}: o experimento tem o número {2}, mas suas condições têm {3}; "
      "os dois arquivos não correspondem"}},
    {Phrase::SimulationOnly,
     {"the conditions were saved for simulation only (method Manual); "
      "use \"velmora-cli simulate\", or save them with the method ED",
      "as condições foram salvas apenas para simulação (método Manual); "
      "use \"velmora-cli simulate\" ou salve-as com o método ED"}},
    {Phrase::NoPoints,
     {"it has no measured point to start from; set Cx0, Cs0 and Cp0",
      "não há ponto medido inicial; fixe Cx0, Cs0 e Cp0"}},
    {Phrase::NoSuchLabel,
     {"--only: {1} has no experiment \"{2}\"; it has {3}",
      "--only: {1} não tem o experimento \"{2}\"; tem {3}"}},
    {Phrase::InExperiment,
     {"experiment {1} (place {2}): {3}", "experimento {1} (posição {2}): {3}"}},

    {Phrase::NotUtf8,
     {"the table is not UTF-8 text; save it as CSV UTF-8",
      "a tabela não é texto UTF-8; salve-a como CSV UTF-8"}},
    {Phrase::NoHeader,
     {"there is no header line with the columns t, Cs, Cx and Cp",
      "falta a linha de cabeçalho com as colunas t, Cs, Cx e Cp"}},
    {Phrase::MissingColumn,
     {"there is no column {1}; the header needs the columns t, Cs, Cx and Cp",
      "falta a coluna {1}; o cabeçalho precisa das colunas t, Cs, Cx e Cp"}},
    {Phrase::ColumnTwice,
     {"two columns begin with {1}; rename or remove one",
      "duas colunas começam com {1}; renomeie ou remova uma"}},
    {Phrase::NoRows, {"there are no rows of data", "não há linhas de dados"}},
    {Phrase::BadQuote,
     {"a double quote is not closed, or text follows it in its cell",
      "há aspas sem fechamento ou com texto depois delas na célula"}},
    {Phrase::TooManyCells,
     {"row {1} has {2} cells but the header has {3}; "
      "with commas between cells, write numbers with a decimal point",
      "a linha de dados {1} tem {2} células, mas o cabeçalho tem {3}; "
      "com vírgulas entre células, escreva os números com ponto decimal"}},
    {Phrase::AtCell, {"row {1}, column {2}: {3}", "linha de dados {1}, coluna {2}: {3}"}},
    {Phrase::CellEmpty,
     {"the cell is empty; fill it or remove the row",
      "a célula está vazia; preencha-a ou remova a linha"}},
    {Phrase::CellNotANumber,
     {"\"{1}\" is not a number (thousands separators are not accepted)",
      "\"{1}\" não é um número (separadores de milhar não são aceitos)"}},
    {Phrase::CellNegative,
     {"\"{1}\" is negative; measured values are 0 or more",
      "\"{1}\" é negativo; valores medidos são iguais ou maiores que 0"}},
    {Phrase::CellMixedMarks,
     {"\"{1}\" has another decimal mark than the numbers before it; use one in the whole table",
      "\"{1}\" tem outro separador decimal que os números anteriores; use um só em toda a tabela"}},
    {Phrase::LabelUnfit,
     {"\"{1}\" holds a comma, a control character or a letter outside Windows-1252, which a "
      "description in an experiment file cannot hold; write it without",
      "\"{1}\" contém vírgula, caractere de controle ou letra fora do Windows-1252, que a "
      "descrição "
      "no arquivo de experimentos não comporta; retire-os"}},
    {Phrase::TooManyPoints,
     {"an experiment has at most 32767 points", "um experimento tem no máximo 32767 pontos"}},
    {Phrase::TooManyInTable,
     {"there are more than {1} experiments; split the table",
      "há mais de {1} experimentos; divida a tabela"}},

    {Phrase::Model, {"Model", "Modelo"}},
    {Phrase::Parameters, {"Parameters", "Parâmetros"}},
    {Phrase::Equation, {"Specific growth rate", "Velocidade específica de crescimento"}},
    {Phrase::Experiments, {"Experiment", "Experimento"}},
    {Phrase::ExperimentHeading, {"Experiment {1} (place {2})", "Experimento {1} (posição {2})"}},
    {Phrase::ExperimentsWithValues,
     {"Experiments: {1} ({2} measured values)", "Experimentos: {1} ({2} valores medidos)"}},
    {Phrase::Generations, {"Generations: {1}", "Gerações: {1}"}},
    {Phrase::GenerationLine,
     {"generation {1}   best score {2}   {3} s", "geração {1}   melhor soma {2}   {3} s"}},
    {Phrase::Score, {"Score", "Total"}},
    {Phrase::Sum, {"Sum", "Soma"}},
    {Phrase::UnscaledAt, {" (place {1}, {2})", " (posição {1}, {2})"}},
    {Phrase::IsExperiments,
     {"{1}: experiments, {2} of them", "{1}: experimentos, em número de {2}"}},
    {Phrase::IsConditions,
     {"{1}: cultivation conditions of {2} experiment(s)",
      "{1}: condições de cultivo de {2} experimento(s)"}},
    {Phrase::NoBatchLine,
     {"The third line is not \"Batelada\": the file reads as holding no experiments. "
      "Save the conditions again from the cultivation window, or with \"velmora-cli conditions\".",
      "A terceira linha não é \"Batelada\": o arquivo é lido como não tendo experimentos. "
      "Salve as condições de novo na janela de cultivo, ou com \"velmora-cli conditions\"."}},
    {Phrase::NeitherFile,
     {"the second line is neither \"Dados de entrada\" (experiments) nor "
      "\"Condições de cultivo\" (conditions); this is no file of the program's",
      "a segunda linha não é \"Dados de entrada\" (experimentos) nem "
      "\"Condições de cultivo\" (condições); o arquivo não é do programa"}},
    {Phrase::ExperimentsWanted,
     {"this is a conditions file; an experiment file belongs here",
      "este é um arquivo de condições; aqui cabe um arquivo de experimentos"}},
    {Phrase::ConditionsWanted,
     {"this is an experiment file; a conditions file belongs here",
      "este é um arquivo de experimentos; aqui cabe um arquivo de condições"}},
    {Phrase::ExperimentLine,
     {"  {1}. number {2}, {3} point(s), final time {4} h, \"{5}\"",
      "  {1}. número {2}, {3} ponto(s), tempo final {4} h, \"{5}\""}},
    {Phrase::ConditionsLine,
     {"  {1}. number {2}, model {3}, method {4}, production {5}, {6}",
      "  {1}. número {2}, modelo {3}, método {4}, produção {5}, {6}"}},
    {Phrase::NoCatalogueModel, {"none of the 32", "nenhum dos 32"}},
    {Phrase::GlobalYields, {"global yields", "rendimentos globais"}},
    {Phrase::StoichiometricYields, {"stoichiometric yields", "rendimentos estequiométricos"}},
    {Phrase::FittedLine,
     {"  fitted: {1} from {2} between {3} and {4}",
      "  ajustado: {1} a partir de {2} entre {3} e {4}"}},
    {Phrase::NothingFitted, {"  no parameter is fitted", "  nenhum parâmetro é ajustado"}},
    {Phrase::Written, {"{1}: {2} experiment(s) written", "{1}: {2} experimento(s) gravado(s)"}},

    {Phrase::OutputFailed,
     {"the output cannot be written: {1}", "a saída não pode ser escrita: {1}"}},
    {Phrase::NoCharts,
     {"the charts cannot be drawn ({1}); the report is without them",
      "os gráficos não podem ser desenhados ({1}); o relatório fica sem eles"}},
    {Phrase::OutOfMemory, {"there is not enough memory", "não há memória suficiente"}},
    {Phrase::OutOfMemoryInFit,
     {"there is not enough memory; a smaller --npop needs less",
      "não há memória suficiente; um --npop menor precisa de menos"}},
});

constexpr bool InOrder() {
  for (std::size_t i = 0; i < kPhrases.size(); ++i)
    if (static_cast<std::size_t>(kPhrases[i].phrase) != i) return false;
  return static_cast<std::size_t>(Phrase::OutOfMemoryInFit) + 1 == kPhrases.size();
}
static_assert(InOrder(), "one entry for each phrase, in the order of the enumeration");

}  // namespace

std::string Filled(std::string_view pattern, std::initializer_list<std::string_view> arguments) {
  std::string text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '{') {
      text += pattern[i];
      continue;
    }
    const auto index = static_cast<std::size_t>(pattern[i + 1] - '1');
    assert(index < arguments.size() && pattern[i + 2] == '}');
    text += arguments.begin()[index];
    i += 2;
  }
  return text;
}

std::string OnOneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\n' || c == '\r';
    if (!blank || (!line.empty() && line.back() != ' ')) line += blank ? ' ' : c;
  }
  if (line.ends_with(' ')) line.pop_back();
  return line;
}

std::string PlaceInFile(const std::string& path, int line) {
  std::string place = path + ":";
  if (line > 0) place.append(std::to_string(line)).append(":");
  return place + " ";
}

std::string Wording::operator()(Phrase phrase,
                                std::initializer_list<std::string_view> arguments) const {
  return Filled(kPhrases[static_cast<std::size_t>(phrase)].text.In(language_), arguments);
}

std::string Wording::Of(const Message& message) const {
  return OnOneLine(Worded(message, language_));
}

}  // namespace velmora::cli

#include "language/HelpTexts.h"

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

namespace velmora {

const HelpText kAboutText = {
    R"text(Fits kinetic parameters of batch fermentations to measured time courses of cells (Cx),
substrate (Cs) and product (Cp), by Levenberg-Marquardt from many starts or by differential
evolution, over 32 growth models.)text",
    R"text(Ajusta parâmetros cinéticos de fermentações em batelada às curvas medidas de células (Cx),
substrato (Cs) e produto (Cp), por Levenberg-Marquardt a partir de muitos pontos ou por
evolução diferencial, com 32 modelos de crescimento.)text"};

const HelpText kFooterText = {R"text(
"velmora-cli COMMAND --help" explains a command. --language en|pt may stand anywhere.
Numbers have a decimal point. Exit codes: 0 done, 1 refused by a rule, 2 usage, 3 a file
cannot be read or written, 4 an arithmetic fault; a fit or a comparison that was stopped:
129 by SIGHUP, 130 by Ctrl-C, 143 by SIGTERM.)text",
                              R"text(
"velmora-cli COMANDO --help" explica um comando. --language en|pt pode ficar em qualquer
lugar. Os números têm ponto decimal. Códigos de saída: 0 feito, 1 recusado por uma regra,
2 uso, 3 um arquivo não pode ser lido ou gravado, 4 uma falha aritmética; um ajuste ou uma
comparação interrompidos: 129 por SIGHUP, 130 por Ctrl-C, 143 por SIGTERM.)text"};

const HelpText kInputsFooterText = {R"text(
--model takes the place of the conditions' own model, and --set gives the values that the
conditions lack for it. NAME is one of )text",
                                    R"text(
--model substitui o modelo das condições, e --set dá os valores que as condições não têm
para ele. NOME (NAME) é um de )text"};

const HelpText kFitFooterText = {R"text(
Searches the parameters that the conditions file marks as fitted, between their bounds;
--fit adds one, or gives one of them another start and other bounds. The settings but for
the seed are those of the method ED. Ctrl-C, SIGTERM and SIGHUP stop the search; the
results are printed all the same.
)text",
                                 R"text(
Busca os parâmetros que o arquivo de condições marca como ajustados, entre seus limites;
--fit acrescenta um, ou dá a um deles outro valor inicial e outros limites. Os ajustes da
busca, fora a semente, são os do método ED. Ctrl-C, SIGTERM e SIGHUP interrompem a busca; os
resultados são impressos assim mesmo.
)text"};

const HelpText kCompareFooterText = {R"text(
Each model is fitted by Levenberg-Marquardt from a start and between bounds that the data
propose for it (as "conditions --propose" does), those of the conditions' own fit aside;
all else is as the conditions say. The table has the best model first, by AICc:
n ln(SSE/n) + 2k + 2k(k+1)/(n-k-1) of n scored values, k being the D fitted parameters and
the variance. An AICc less than 2 above the best means that the data do not tell the models
apart. R² is of the scored values in g/L. Two threads or more share the models where the
machine has them; the result is the same. Ctrl-C, SIGTERM and SIGHUP stop it; what is done
is printed all the same.)text",
                                     R"text(
Cada modelo é ajustado por Levenberg-Marquardt a partir de um valor inicial e entre limites
que os dados propõem para ele (como faz "conditions --propose"), sem usar os do ajuste das
condições; o resto é como dizem as condições. A tabela traz o melhor modelo primeiro, pelo
AICc: n ln(SSE/n) + 2k + 2k(k+1)/(n-k-1) de n valores na soma, sendo k os D parâmetros
ajustados e a variância. Um AICc menos de 2 acima do melhor significa que os dados não
distinguem os modelos. R² é dos valores na soma, em g/L. Duas ou mais threads repartem os
modelos onde a máquina os tem; o resultado é o mesmo. Ctrl-C, SIGTERM e SIGHUP a
interrompem; o que está feito é impresso assim mesmo.)text"};

const HelpText kChartFooterText = {R"text(
Draws Cx, Cs and Cp below each other, each with its own axes, as people publish them: the
curves in the colours of their experiments, told apart in grey print and by colour-blind
readers, with a legend. The end of the name tells the format: .svg, .pdf or .png.
Without a conditions file the measured points stand alone. Where the conditions mark
parameters as fitted they are fitted first, and the charts show the best values; with
--as-given they show the values that stand in the file. --model, --set, --fit and --iu are
those of fit.
curves      points and curves over time
residuals   measured minus model, over time
parity      model over measured values
profile     of each fitted parameter: the sum of squared errors with the parameter held and
            the others fitted again, and its 95 % interval

Examples:
  velmora-cli chart yeast.abr yeast-conditions.abr -o yeast.pdf
  velmora-cli chart yeast.abr yeast-conditions.abr -o parity.png --kind parity --dpi 600)text",
                                   R"text(
Desenha Cx, Cs e Cp um abaixo do outro, cada um com seus eixos, como se publicam: as curvas
nas cores de seus experimentos, distinguíveis em impressão cinza e por leitores daltônicos,
com legenda. O fim do nome diz o formato: .svg, .pdf ou .png. Sem arquivo de condições ficam
só os pontos medidos. Onde as condições marcam parâmetros como ajustados, eles são ajustados
primeiro e os gráficos mostram os melhores valores; com --as-given mostram os valores que
estão no arquivo. --model, --set, --fit e --iu são os de fit.
curves      pontos e curvas ao longo do tempo
residuals   medido menos modelo, ao longo do tempo
parity      modelo contra valores medidos
profile     de cada parâmetro ajustado: a soma do quadrado dos erros com o parâmetro fixo e os
            outros ajustados de novo, e seu intervalo de 95 %

Exemplos:
  velmora-cli chart yeast.abr yeast-conditions.abr -o yeast.pdf
  velmora-cli chart yeast.abr yeast-conditions.abr -o parity.png --kind parity --dpi 600)text"};

const HelpText kCheckFooterText = {R"text(
Of experiments it also tells what looks odd, with experiment, row and value: falling Cx,
rising Cs, product before growth, more cells and product than substrate used, times out of
order, a first sample that is not at 0 h, single points far off the others, and values
that look like another unit. It changes nothing, and the exit code stays 0.)text",
                                   R"text(
De experimentos diz também o que parece estranho, com experimento, linha e valor: Cx que
cai, Cs que sobe, produto antes do crescimento, mais células e produto do que substrato
consumido, tempos fora de ordem, primeira amostra que não está em 0 h, pontos isolados muito
distantes e valores que parecem estar em outra unidade. Nada muda, e o código de saída
continua 0.)text"};

const HelpText kImportFooterText = {R"text(
A header line names the columns: experiment, t, Cs, Cx, Cp, in any order, with units or
without (t_h, "Cs (g/L)"); where these are missing, names such as time, biomass, glucose,
ethanol, tempo, células, substrato, produto, batch, run and ensaio do as well. Other
columns are ignored, and so are lines that begin with #. Without an experiment column each
block with a header of its own, below others or beside them, is an experiment, with the
title above it for its label; of several files each is one. Titles above the header and
remarks below the data are left out and told. Rows stay in their order; times out of order are told.
Of an Excel workbook (.xlsx) the first sheet is read, or the one of --sheet; its numbers
need no mark, and dates are refused. Cells of a text are separated by commas, semicolons or tabs, or by what a first line "sep=;" says.
The text is UTF-8, UTF-16 with its mark, or Windows-1252. A cell that is empty, NA or no
number is an error, never 0; --missing drops the rows that lack Cs, Cx or Cp, or puts the
value there that lies on the straight line between its neighbours in time, and tells each.
The decimal mark is the one that the table shows: 20,5 shows a comma, 1.234,5 too. Where
nothing shows it, 1,234 is refused; --decimal and --thousands decide.
The unit is the one in the header, as in t_min, "Glucose (mg/L)" or "Cp, mM", or in a row
below it; without one it is h or g/L. Known are s, min, h and d; g/L, mg/L, mg/mL, kg/m3,
g/100 mL and their like; and mM, mmol/L and M with a molar mass in g/mol. What was
converted, and which columns were taken by another name, is told.

Examples:
  velmora-cli import yeast.csv -o yeast.abr
  velmora-cli import hplc.csv --columns t=1,Cx=biomass,Cs=4,Cp=5 --unit Cs=mM
      --molar-mass Cs=180.16 -o hplc.abr)text",
                                    R"text(
Uma linha de cabeçalho nomeia as colunas: experiment, t, Cs, Cx, Cp, em qualquer ordem, com
ou sem unidades (t_h, "Cs (g/L)"); na falta delas servem nomes como time, biomass, glucose,
ethanol, tempo, células, substrato, produto, batch, run e ensaio. Outras colunas são
ignoradas, assim como linhas que começam com #. Sem coluna de experimento, cada bloco com
cabeçalho próprio, abaixo de outros ou ao lado, é um experimento, com o título acima dele
como nome; de vários arquivos, cada um é um. Títulos acima do cabeçalho e observações abaixo
dos dados são omitidos e relatados. As linhas ficam em sua ordem; tempos fora de ordem são
relatados.
De uma pasta de trabalho do Excel (.xlsx) lê-se a primeira planilha, ou a de --sheet; seus
números não precisam de separador, e datas são recusadas. As células de um texto são
separadas por vírgulas, pontos e vírgulas ou tabulações, ou pelo que diz uma primeira linha
"sep=;". O texto é UTF-8, UTF-16 com sua marca, ou Windows-1252. Uma célula vazia, NA ou que
não é número é um erro, nunca 0; --missing omite as linhas sem Cs, Cx ou Cp, ou põe ali o
valor da reta entre os vizinhos no tempo, e relata cada uma.
O separador decimal é o que a tabela mostra: 20,5 mostra uma vírgula, 1.234,5 também. Onde
nada o mostra, 1,234 é recusado; --decimal e --thousands decidem.
A unidade é a do cabeçalho, como em t_min, "Glucose (mg/L)" ou "Cp, mM", ou de uma linha
abaixo dele; sem ela, é h ou g/L. Conhecem-se s, min, h e d; g/L, mg/L, mg/mL, kg/m3,
g/100 mL e semelhantes; e mM, mmol/L e M com massa molar em g/mol. O que foi convertido, e
que colunas foram tomadas por outro nome, é relatado.

Exemplos:
  velmora-cli import yeast.csv -o yeast.abr
  velmora-cli import hplc.csv --columns t=1,Cx=biomass,Cs=4,Cp=5 --unit Cs=mM
      --molar-mass Cs=180.16 -o hplc.abr)text"};

const HelpText kConditionsFooterText = {R"text(
The initial values are those of each experiment's earliest point and T is its final time,
unless set. NAME for --set is one of
  )text",
                                        R"text(
Os valores iniciais são os do ponto mais antigo de cada experimento e T é seu tempo final,
a não ser que sejam fixados. NOME (NAME) para --set é um de
  )text"};

const HelpText kConditionsRulesText = {R"text(
and a place in front of it (2:Cx0=0.05) sets the value of that experiment alone. NAME
for --fit is one of the last ten. Every parameter of the model needs a value or a fit;
other values are 0 where they are not set. Kd acts while Cs is at or below CsAst1, Beta
while Cs is at or below CsAst2. With global yields Alfa is Yps/Yxs.

--propose takes initial values and final time from the samples, the yields from a
regression over all of them, and a start and bounds for every parameter of the model from
the measured ranges; --set and --fit win. It needs neither --product nor --yields (PAC,
where product is measured, and global).

Examples:
  velmora-cli conditions yeast.abr --model Monod --propose -o yeast-conditions.abr
  velmora-cli conditions yeast.abr --model Monod --product PAC --yields global
      --set Yxs=0.27 --set Yps=0.42 --fit MiMax=0.2:0.05:1 --fit Ks=10:1:50
      -o yeast-conditions.abr)text",
                                       R"text(
e uma posição na frente (2:Cx0=0.05) fixa o valor só daquele experimento. NOME para --fit é
um dos dez últimos. Todo parâmetro do modelo precisa de um valor ou de um ajuste; os outros
valores são 0 onde não são fixados. Kd atua enquanto Cs está em CsAst1 ou abaixo, Beta
enquanto Cs está em CsAst2 ou abaixo. Com rendimentos globais Alfa é Yps/Yxs.

--propose tira valores iniciais e tempo final das amostras, os rendimentos de uma regressão
sobre todas elas, e um valor inicial e limites para cada parâmetro do modelo das faixas
medidas; --set e --fit prevalecem. Não precisa de --product nem de --yields (PAC, onde se
mede produto, e global).

Exemplos:
  velmora-cli conditions yeast.abr --model Monod --propose -o yeast-conditions.abr
  velmora-cli conditions yeast.abr --model Monod --product PAC --yields global
      --set Yxs=0.27 --set Yps=0.42 --fit MiMax=0.2:0.05:1 --fit Ks=10:1:50
      -o yeast-conditions.abr)text"};

const HelpText kBatchFooterText = {R"text(
A line of LIST names a command, its files and its options, and may have an id:
  {"id": "seed 1000", "command": "fit", "experiments": "yeast.abr",
   "conditions": "yeast-conditions.abr", "iu": 1000, "set": ["Ks=3"]}
all in one line. Commands are fit, compare, score, simulate, export, chart and check
("file").
Each gives one line, in the order of LIST: its number, the SHA-256 sum of the line, the
exit code, and result or error. A command that fails does not end the rest; the exit code
is 1 then. With -o lines that are done are passed over when the batch is started again.
The parts of --shard follow each other: joined in order they are what one run writes.)text",
                                   R"text(
Uma linha de LIST nomeia um comando, seus arquivos e suas opções, e pode ter um id:
  {"id": "semente 1000", "command": "fit", "experiments": "yeast.abr",
   "conditions": "yeast-conditions.abr", "iu": 1000, "set": ["Ks=3"]}
tudo em uma só linha. Os comandos são fit, compare, score, simulate, export, chart e check
("file").
Cada um dá uma linha, na ordem de LIST: seu número, a soma SHA-256 da linha, o código de
saída, e result ou error. Um comando que falha não encerra os demais; o código de saída é
então 1. Com -o, as linhas prontas são puladas quando o lote é iniciado de novo. As partes
de --shard se seguem: unidas em ordem, são o que uma só execução grava.)text"};

namespace {

// clang-format off
constexpr auto kHelp = std::to_array<HelpText>({
    {"integrate every experiment", "simular cada experimento"},
    {"sum of squared errors at given values", "soma do quadrado dos erros em valores dados"},
    {"computed curves as text for spreadsheets", "curvas calculadas como texto para planilhas"},
    {"fit the parameters and print their deviations", "ajustar os parâmetros e imprimir seus desvios"},
    {"fit all models and rank them", "ajustar todos os modelos e ordená-los"},
    {"draw experiments and models for publication", "desenhar experimentos e modelos para publicação"},
    {"list the 32 growth models", "listar os 32 modelos de crescimento"},
    {"tell what a file is and what it holds", "dizer o que um arquivo é e o que contém"},
    {"make an experiment file from tables", "criar um arquivo de experimentos a partir de tabelas"},
    {"make a conditions file for experiments", "criar um arquivo de condições para experimentos"},
    {"run many commands from a list", "executar muitos comandos de uma lista"},
    {"experiment file", "arquivo de experimentos"},
    {"conditions file", "arquivo de condições"},
    {"experiment or conditions file", "arquivo de experimentos ou de condições"},
    {"print JSON instead of text", "imprimir JSON em vez de texto"},
    {"also write a report as rich text", "gravar também um relatório em rich text"},
    {"a parameter to fit", "um parâmetro a ajustar"},
    {"file to write, - for standard output", "arquivo a gravar, - para a saída padrão"},
    {"file to write instead of printing", "arquivo a gravar em vez de imprimir"},
    {"growth model to use instead of the file's", "modelo de crescimento em lugar do que está no arquivo"},
    {"growth model", "modelo de crescimento"},
    {"value of a parameter in every experiment", "valor de um parâmetro em todos os experimentos"},
    {"Levenberg-Marquardt from many starts (LM) or differential evolution (ED), in\nplace of the conditions' own", "Levenberg-Marquardt de muitas partidas (LM) ou evolução diferencial (ED), em\nlugar do método das condições"},
    {"population size, at least 10 (default 100)", "tamanho da população, no mínimo 10 (padrão 100)"},
    {"most generations, at least 200 (default 200)", "máximo de gerações, no mínimo 200 (padrão 200)"},
    {"crossover probability, 0.5 to 0.9 (default 0.8)", "probabilidade de cruzamento, 0.5 a 0.9 (padrão 0.8)"},
    {"weight of the difference term, 0.5 to 0.9 (default 0.8)", "peso do termo de diferença, 0.5 a 0.9 (padrão 0.8)"},
    {"weight of the second term, 0 to 0.01 (default 0.01)", "peso do segundo termo, 0 a 0.01 (padrão 0.01)"},
    {"accuracy of convergence, 1e-7 to 1e-4 (default 1e-5)", "exatidão da convergência, 1e-7 a 1e-4 (padrão 1e-5)"},
    {"seed of the random numbers, 1000 to 9999 (default 5471)", "semente dos números aleatórios, 1000 a 9999 (padrão 5471)"},
    {"95 % intervals by linear theory, by the likelihood profile, or by fits to\nresampled data (may be repeated)", "intervalos de 95 % por teoria linear, pelo perfil de verossimilhança ou por\najustes a dados reamostrados (pode repetir-se)"},
    {"fits of the bootstrap (default 500)", "ajustes do bootstrap (padrão 500)"},
    {"processor cores to use (default all)", "núcleos do processador a usar (padrão: todos)"},
    {"print the results after every generation or start", "imprimir os resultados após cada geração ou partida"},
    {"print a line after every model", "imprimir uma linha após cada modelo"},
    {"digits of the values behind the results: those that their deviations leave\ncertain (default), or all", "dígitos dos valores após os resultados: os que seus desvios deixam certos\n(padrão), ou todos"},
    {"models to compare (default all)", "modelos a comparar (padrão todos)"},
    {"format (default: as the name's end tells; svg on standard output)", "formato (padrão: o que diz o fim do nome; svg na saída padrão)"},
    {"what is drawn (default curves)", "o que se desenha (padrão curves)"},
    {"draw the conditions' own values, without a fit", "desenhar os valores das condições, sem ajuste"},
    {"logarithmic concentrations, of curves", "concentrações logarítmicas, de curvas"},
    {"title above the charts", "título acima dos gráficos"},
    {"width in mm (default 160)", "largura em mm (padrão 160)"},
    {"height in mm (default: what the charts need)", "altura em mm (padrão: a que os gráficos precisam)"},
    {"pixels an inch, of PNG (default 300)", "pixels por polegada, de PNG (padrão 300)"},
    {"print CSV, TSV or JSON with all digits", "imprimir CSV, TSV ou JSON com todos os dígitos"},
    {"points of each curve, on the straight lines between the 100 computed", "pontos de cada curva, nas retas entre os 100 calculados"},
    {"one JSON object in each line", "um objeto JSON em cada linha"},
    {"run only the K-th of N parts of the list", "executar só a K-ésima de N partes da lista"},
    {"file for the results, kept and continued", "arquivo dos resultados, mantido e continuado"},
    {"tables, text (CSV) or Excel workbooks (.xlsx)", "tabelas, texto (CSV) ou pastas de trabalho do Excel (.xlsx)"},
    {"keep only this experiment (may be repeated)", "manter só este experimento (pode repetir-se)"},
    {"sheet of a workbook (default the first)", "planilha da pasta de trabalho (padrão a primeira)"},
    {"decimal mark of the numbers", "separador decimal dos números"},
    {"mark between the thousands of a number", "separador de milhares dos números"},
    {"columns by header or by place from 1", "colunas por cabeçalho ou por posição a partir de 1"},
    {"unit of a column", "unidade de uma coluna"},
    {"g/mol of a column in mM", "g/mol de uma coluna em mM"},
    {"what becomes of a row that lacks Cs, Cx or Cp", "o que se faz de uma linha sem Cs, Cx ou Cp"},
    {"production: associated with growth (PAC), partially (PPAC), not (PNAC);\nneeded without --propose", "produção: associada ao crescimento (PAC), em parte (PPAC), não (PNAC);\nnecessária sem --propose"},
    {"yield coefficients; needed without --propose", "coeficientes de rendimento; necessários sem --propose"},
    {"Levenberg-Marquardt (LM, default), differential evolution (ED), or simulate\nonly (Manual)", "Levenberg-Marquardt (LM, padrão), evolução diferencial (ED), ou apenas simular\n(Manual)"},
    {"a value", "um valor"},
    {"propose from the data what is not given, and print why", "propor a partir dos dados o que não é dado, e imprimir por quê"},
    {"language of texts and messages", "idioma dos textos e mensagens"},
    {"most that is read of a file, in MB (default 64)", "máximo que se lê de um arquivo, em MB (padrão 64)"},
    {"say nothing beside results and errors", "nada dizer além de resultados e erros"},
    {"Print this help message and exit", "mostrar esta ajuda e sair"},
    {"Display program version information and exit", "mostrar a versão e sair"},
    {"Usage", "Uso"},
    {"OPTIONS", "OPÇÕES"},
    {"Positionals", "Argumentos"},
    {"Options", "Opções"},
    {"Subcommands", "Comandos"},
    {"SUBCOMMAND", "COMANDO"},
    {"REQUIRED", "OBRIGATÓRIO"},
});

/// {1}, {2}, ... stand for what the message is about.
constexpr auto kParserMessages = std::to_array<HelpText>({
    {"{1} excludes {2}", "{1} e {2} se excluem"},
    {"A subcommand is required", "falta o comando"},
    {"{1} is required", "falta {1}"},
    {"The following argument was not expected: {1}", "argumento inesperado: {1}"},
    {"The following arguments were not expected: {1}", "argumentos inesperados: {1}"},
    {"{1}: {2} required {3} missing", "{1}: falta {3}"},
    {"{1}: Value {2} not in range {3} to {4}", "{1}: o valor {2} não está entre {3} e {4}"},
    {"{1}: {2} not in {3}", "{1}: {2} não é um de {3}"},
    {"Could not convert: {1} = {2}", "{1}: \"{2}\" não serve"},
    {"{1}: At Most {2} required but received {3}", "{1}: no máximo {2}, mas vieram {3}"},
    {"{1}: At least {2} required but received {3}", "{1}: no mínimo {2}, mas vieram {3}"},
});
// clang-format on

/// What stands in a text where its pattern has {1}, {2}, ...; nothing where it is another text.
std::optional<std::vector<std::string_view>> Matched(std::string_view pattern,
                                                     std::string_view text) {
  std::vector<std::string_view> found;
  while (!pattern.empty()) {
    const std::size_t place = pattern.find('{');
    if (!text.starts_with(pattern.substr(0, place))) return std::nullopt;
    if (place == std::string_view::npos)
      return text == pattern ? std::optional(found) : std::nullopt;
    text.remove_prefix(place);
    pattern.remove_prefix(place + 3);
    const std::string_view next = pattern.substr(0, pattern.find('{'));
    const std::size_t end = next.empty() ? text.size() : text.find(next);
    if (end == std::string_view::npos) return std::nullopt;
    found.push_back(text.substr(0, end));
    text.remove_prefix(end);
  }
  return text.empty() ? std::optional(found) : std::nullopt;
}

std::string Put(std::string_view pattern, std::span<const std::string_view> found) {
  std::string text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '{') {
      text += pattern[i];
      continue;
    }
    text += found[static_cast<std::size_t>(pattern[i + 1] - '1')];
    i += 2;
  }
  return text;
}

}  // namespace

std::string_view HelpInPortuguese(std::string_view english) {
  const auto at = std::find_if(kHelp.begin(), kHelp.end(),
                               [=](const HelpText& text) { return text.english == english; });
  return at == kHelp.end() ? english : at->portuguese;
}

std::string ParserMessageInPortuguese(std::string_view english) {
  for (const HelpText& message : kParserMessages)
    if (const auto found = Matched(message.english, english))
      return Put(message.portuguese, *found);
  return std::string(english);
}

}  // namespace velmora

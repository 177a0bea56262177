#include "language/Texts.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace velmora {
namespace {

struct Entry {
  constexpr Entry(int number, std::string_view inEnglish, std::string_view inPortuguese)
      : Entry(TextId{static_cast<std::int16_t>(number)}, inEnglish, inPortuguese) {}
  constexpr Entry(TextId text, std::string_view inEnglish, std::string_view inPortuguese)
      : id(text), english(inEnglish), portuguese(inPortuguese) {}

  TextId id;
  std::string_view english;
  std::string_view portuguese;  // stored under id + kPortugueseOffset
};

// Texts joined around a number (357 and 358, say) rely on their leading and trailing blanks.
// clang-format off
constexpr auto kTable = std::to_array<Entry>({
    {100, "&File", "&Arquivo"},
    {101, "&Experiments", "&Experimentos"},
    {102, "&Insert", "&Inserir"},
    {103, "Fitting &method", "&Método de ajuste"},
    {104, "&Help", "A&juda"},
    {105, "Open", "Abrir"},
    {106, "Accuracy of convergence (0.0001 - 0.0000001)", "Acurácia de convergência (0.0001 - 0.0000001)"},
    {107, "Estimating parameters:", "Ajustando parâmetros:"},
    {108, "A program for estimation of fermentation kinetic parameters", "Um programa para o ajuste de parâmetros cinéticos de fermentação"},
    {109, "Application field: fermentation processes", "Área de aplicação: Processos fermentativos"},
    {110, "Authors:", "Autores:"},
    {111, "Batch", "Batelada"},
    {112, "Fed batch", "Batelada Alimentada"},
    {113, "Brief description of the experiment", "Breve descrição sobre o experimento"},
    {114, "Cultivati&on conditions", "C&ondições de cultivo"},
    {115, "Kinetics of cell growth", "Cinética de crescimento celular"},
    {116, "Kinetics of production", "Cinética de produção"},
    {117, "Velmora", "Velmora"},
    {118, "Yield coefficients", "Coeficientes de rendimento"},
    {119, "Cultivation con&ditions", "Con&dições de cultivo"},
    {120, "Cultivation conditions", "Condições de cultivo"},
    {121, "Initial conditions and cultivation time", "Condições iniciais e duração do cultivo"},
    {122, "Data set used during parameters estimation simultaneously", "Conjunto de dados utilizados no ajuste simultaneamente"},
    {123, "Copy", "Copiar"},
    {124, "Symbol color", "Cor do símbolo"},
    {125, "Cp versus time", "Cp versus tempo"},
    {126, "Cs versus time", "Cs versus tempo"},
    {127, "the Velmora developers", "os desenvolvedores do Velmora"},
    {128, "Batch Cultivation", "Cultivo em Batelada"},
    {129, "Fed-batch cultivation", "Cultivo em Batelada Alimentada"},
    {130, "Cx versus time", "Cx versus tempo"},
    {131, "Data (Clipboard)", "Dados (Clipboard)"},
    {132, "Define time range", "Definir intervalo de tempo"},
    {133, "Do you want to delete an experiment?", "Deseja excluir algum experimento?"},
    {134, "Written in C++ with the Qt toolkit", "Escrito em C++ com a biblioteca Qt"},
    {135, "Developed by:", "Desenvolvido por:"},
    {136, "Determine intervals", "Determinar intervalos"},
    {137, "Choo&se cultivation", "E&scolher cultivo"},
    {138, "Edit &graphic", "Editar &gráfico"},
    {139, "Scale parameter 1 (0.5 - 0.9)", "Escala de parâmetros 1 (0.5 - 0.9)"},
    {140, "Scale parameter 2 (0.0 - 0.01)", "Escala de parâmetros 2 (0.0 - 0.01)"},
    {141, "Stoichiometric", "Estequiométrico"},
    {142, "Line style", "Estilo da linha"},
    {143, "Estimate", "Estimar"},
    {144, "Experiment&s", "Experimento&s"},
    {145, "Experiments", "Experimentos"},
    {146, "Export", "Exportar"},
    {147, "Global", "Global"},
    {148, "Visible graph", "Gráfico visível"},
    {149, "Insert experiment", "Inserir experimento"},
    {150, "Insert title in graph", "Inserir título no gráfico"},
    {151, "Model integration: fourth-order Runge-Kutta", "Integração do modelo: Runge-Kutta de quarta ordem"},
    {152, "Legend", "Legenda"},
    {153, "Legend / Nº of experiment", "Legenda/Nº do experimento"},
    {154, "Levenberg-Marquardt", "Levenberg-Marquardt"},
    {155, "Lower bound", "Limite inferior"},
    {156, "Upper bound", "Limite superior"},
    {157, "Grid lines", "Linhas de grade"},
    {158, "Simulate", "Simular"},
    {159, "Symbol", "Marcador"},
    {160, "Maximal time", "Máximo tempo"},
    {161, "Choose", "Escolher"},
    {162, "Minimal time", "Mínimo tempo"},
    {163, "Chosen model:", "Modelo escolhido:"},
    {164, "No", "Não"},
    {165, "No experiment was added.", "Nenhum experimento foi adicionado."},
    {166, "Name of input file", "Nome do arquivo de entrada"},
    {167, "Name of output file", "Nome do arquivo de saída"},
    {168, "Graph name", "Nome do gráfico"},
    {169, "Number of iterations (Greater than or equal to 200)", "Número de iterações (Maior ou igual a 200)"},
    {170, "Number of observations", "Número de observações"},
    {171, "Points number", "Número de pontos"},
    {172, "Number of variables", "Número de variáveis"},
    {173, "Experiment number", "Número do experimento"},
    {174, "Random number (4 digits)", "Número randômico (4 digitos)"},
    {175, "Kinetic parameters", "Parâmetros cinéticos"},
    {176, "Parameters of Differential Evolution", "Paramêtros do Evolução Diferencial"},
    {177, "Crossover probability (0.5 - 0.9)", "Probabilidade crossover (0.5 - 0.9)"},
    {178, "Production associated with cell growth", "Produção associada ao crescimento celular"},
    {179, "Production not associated with cell growth", "Produção não associada ao crescimento celular"},
    {180, "Production partially associated with cell growth", "Produção parcialmente associada ao crescimento celular"},
    {181, "Program dedicated to kinetic parameters estimation", "Programa dedicado ao ajuste de parâmetros cinéticos"},
    {182, "Next step (Initial conditions and parameter estimation)", "Próxima etapa (Condições iniciais e estimativa de parâmetros)"},
    {183, "Results", "Resultados"},
    {184, "Exit", "Sair"},
    {185, "Save", "Salvar"},
    {186, "Yes", "Sim"},
    {187, "About ...", "Sobre..."},
    {188, "Population size (Greater than 10 times EPN*)", "Tamanho da população (Maior que 10 vezes EPN*)"},
    {189, "Final time (h)", "Tempo final (h)"},
    {190, "Time:", "Tempo:"},
    {191, "Help Topics", "Tópicos de ajuda"},
    {192, "Choose the language:", "Escolha o idioma:"},
    {193, "Portuguese", "Português"},
    {194, "English", "Inglês"},
    {195, "Language", "Idioma"},
    {196, "Estimated parameters:", "Parâmetros estimados:"},
    {197, "Experimental data", "Dados experimentais"},
    {198, "Delete", "Excluir"},
    {199, "*EPN: estimated parameters number", "*EPN: número de parâmetros estimados"},
    {200, "Graph", "Gráfico"},
    {201, "Attention: The options \"Choose\", \"Kinetics of cell growth\" and \"Kinetics of production\"  are the same for all experiments added. Remember to validate the chosen model in the green button. ", "Atenção: As opções \"Escolher\", \"Cinética de crescimento celular\" e \"Cinética de produção são as mesmas para todos os experimentos adicionados. Não esqueça de validar no botão verde o modelo escolhido. "},
    {202, "Parameter search: differential evolution", "Busca dos parâmetros: evolução diferencial"},
    {300, "* Options: fitting method, data set, production kinetic model, cell kinetic model or estimated parameters.", "* Opções: Método de ajuste, conjunto de dados, cinética de produção, cinética celular ou variáveis ajustadas."},
    {301, "The production kinetic model was not selected.", "A cinética de produção não foi selecionada."},
    {302, "Parameters estimation", "Ajuste de parâmetros"},
    {303, "Some estimated parameter(s) or its (theirs) boundary(ies) is(are) not filled.", "Alguma(s) da(s) variável(eis) ajustada(s) ou limite(s) da(s) mesma(s) não está(ão) preenchida(s)."},
    {304, "Some variable(s) is(are) out of boundary(ies).", "Alguma(s) da(s) variável(eis) encontra-se fora dos limites."},
    {305, "At least one of the experiments was saved with estimation options* different from the other experiment(s).", "Ao menos um dos experimentos foi salvo com opções de ajuste* diferentes do(s) outro(s) experimento(s)."},
    {306, "The cultivation conditions of the experiment", "As condições de cultivo do experimento"},
    {307, "Attention", "Atenção"},
    {308, "Cultivation conditions of the experiment", "Condições de cultivo do experimento"},
    {309, "Confirmation", "Confirmação"},
    {310, "Confirm these data for Experiment", "Confirmar estes dados para o Experimento"},
    {311, "Data inserted successfully", "Dados inseridos com sucesso"},
    {312, "Would you like to estimate the parameters?", "Deseja realizar o ajuste?"},
    {313, "Error", "Erro"},
    {314, "Error opening the file.", "Erro ao abrir o arquivo."},
    {315, "This experiment has already been added. Would you like to change it?", "Este experimento já foi adicionado. Deseja alterá-lo?"},
    {316, "This experiment cannot be saved, because it is empty.", "Este experimento não pode ser salvo, pois está vazio."},
    {317, "to delete conditions already added. Would you like to replace them?", "excluir as condições já adicionadas. Deseja substitui-las?"},
    {318, "Delete experiment", "Excluir experimento"},
    {319, "Experiment already added", "Experimento já adicionado"},
    {320, "Experiment not saved", "Experimento não salvo"},
    {321, "Experiment empty", "Experimento vazio"},
    {322, "experiments already added. Would you like to replace them?", "experimentos já adicionados. Deseja substitui-los?"},
    {323, "were inserted, but review variables that will be adjusted.", "foram inseridas, porém rever variáveis que serão ajustadas."},
    {324, "Graph not selected", "Gráfico não selecionado"},
    {325, "Information", "Informação"},
    {326, "successfully inserted.", "inseridas com sucesso."},
    {327, "Variable(s) boundary(ies) cannot be zero.", "Limite(s) da(s) variável(eis) não pode(m) ser igual(is) a zero."},
    {328, "No experiment was added or it is not saved.", "Não foi adicionado nenhum experimento ou ainda não está salvo."},
    {329, "No graph was selected.", "Não foi selecionado nenhum gráfico para visualização."},
    {330, "No cultivation conditions were added.", "Não foram adicionadas as condições de cultivo."},
    {331, "It is not possible to display graph, because no experiment has been added.", "Não pode ser exibido o gráfico, pois não foi adicionado nenhum experimento."},
    {332, "Invalid Name", "Nome Inválido"},
    {333, "Data set to be used in estimation has not been selected.", "O conjunto de dados utilizado no ajuste não foi selecionado."},
    {334, "Chosen experiment cannot be excluded.", "O experimento escolhido não pode ser excluido."},
    {335, "Fitting method has not been selected.", "O método de ajuste não foi selecionado."},
    {336, "Informed lower bound for time is greater than the upper one.", "O mínimo tempo digitado é maior que o máximo."},
    {337, "The number of experiments is not equal to the number of added cultivation conditions.", "O número de experimentos não é igual ao número de condições de cultivo adicionadas."},
    {338, "Cs0 must be greater than 0.", "O valor de Cs0 dever ser maior que 0."},
    {339, "Cx0 must be greater than 0.", "O valor de Cx0 dever ser maior que 0."},
    {340, "Time must be greater than 0.", "O valor de tempo dever ser maior que 0."},
    {341, "Yps must be greater than 0.", "O valor de Yps dever ser maior que 0."},
    {342, "Yxs must be greater than 0.", "O valor de Yxs dever ser maior que 0."},
    {343, "Typed value is less than the lower bound for time in the experiments.", "O valor digitado está abaixo do menor tempo dos experimentos."},
    {344, "Typed value is greater than the upper bound for time in the experiments.", "O valor digitado está acima do maior tempo dos experimentos."},
    {345, "To open another set of cultivation conditions is necessary", "Para abrir outro conjunto de condições de cultivo é necessário"},
    {346, "To open another set of experiments is necessary to delete the", "Para abrir outro conjunto de experimentos é necessário excluir os"},
    {347, "Please, confirm cell kinetics model.", "Por favor, confirmar o modelo de cinética celular."},
    {348, "Possibilities of error:", "Possibilidades de erro:"},
    {349, "If you want to delete the experiment click on 'Delete'.", "Se deseja excluir o experimento clicar no botão 'Deletar'."},
    {350, "One of the parameters is out of bounds.", "Um dos parâmetros encontra-se fora dos limites."},
    {351, "Check the option 'Graph visible' on the window of insertion of experiments. ", "Verifique a opção 'gráfico visível' na janela de inserção dos experimentos."},
    {352, "You must add at least one experiment to fit the model.", "Você deve adicionar ao menos um experimento para poder fazer o ajuste."},
    {353, "You must select the experiment in which you want to insert cultivation conditions.", "Você deve selecionar o experimento em que deseja inserir as condições de cultivo."},
    {354, "You must select a variable to be fitted.", "Você deve selecionar uma variável para ser estimada."},
    {355, "You did not saved this experiment. Do you want to delete it?", "Você não salvou esse experimento. Deseja exclui-lo?"},
    {356, "Are you sure you want to quit?", "Você tem certeza que deseja encerrar este programa?"},
    {357, "You must save the cultivation conditions of the experiment ", "Você deve salvar as condições de cultivo do experimento "},
    {358, " before returning to its previous condition.", " antes de voltar à condição anterior."},
    {359, "Check the bound values.", "Verificar valores dos limites."},
    {360, "Try to change the parameters!", "Tente mudar os parâmetros!"},
    {361, "Are you sure you want to stop the estimation?", "Deseja parar o ajuste?"},
    {362, "Estimate was not completed:  ", "Estimativa não concluída:  "},
    {400, "Estimate parameters", "Ajustar parâmetros"},
    {401, "Change kinetic model of production", "Alterar cinética de produção"},
    {402, "Change dataset", "Alterar conjunto de dados"},
    {403, "Change fitting method", "Alterar método de ajuste"},
    {404, "Change kinetic model", "Alterar modelo cinético"},
    {405, "Clear experimental data and commentary", "Apagar dados experimentais e comentário"},
    {406, "Clear results", "Apagar resultados"},
    {407, "Update parameter values", "Atualizar valores dos parâmetros"},
    {408, "Cancel", "Cancelar"},
    {409, "Confirm range", "Confirmar intervalo"},
    {410, "Confirm title", "Confirmar título"},
    {411, "Copy", "Copiar"},
    {412, "Delimit the range of values in axes x and y", "Delimitar intervalo de valores nos eixos x e y"},
    {413, "Delete experiments", "Excluir experimentos"},
    {414, "Close window", "Fechar janela"},
    {415, "Print", "Imprimir"},
    {416, "Add experiment", "Incluir experimento"},
    {417, "Start", "Iniciar"},
    {418, "Insert or remove legend", "Inserir ou remover legenda"},
    {419, "Insert or remove grid lines", "Inserir ou remover linhas de grade"},
    {420, "Insert or remove graph title", "Inserir ou remover título no gráfico"},
    {421, "Go to step of cultivation conditions insertion", "Ir para a etapa de inserção das condições de cultivo"},
    {422, "Return to the values of estimated parameters", "Voltar aos valores dos parâmetros ajustados"},
    {423, "Legend", "Legenda"},
    {424, "Grid lines", "Linhas de grade"},
    {425, "Report with results of the fitting", "Relatório com os resultados do ajuste"},
    {426, "Exit", "Sair"},
    {427, "Save", "Salvar"},
    {428, "Save cultivation conditions", "Salvar condições de cultivo"},
    {429, "Save experiment", "Salvar experimento"},
    {430, "View graphs", "Ver gráficos"},
    {431, "Return to the initial values of parameters", "Voltar aos valores iniciais de parâmetros"},
    {432, "Return to the window of experiments", "Voltar para a janela de experimentos"},
    {433, "Stop estimating", "Parar estimativa"},
    {434, "Initial cell concentration", "Concentração inicial de células"},
    {435, "Initial substrate concentration", "Concentração inicial de substrato"},
    {436, "Initial product concentration", "Concentração inicial de produto"},
    {437, "Time", "Tempo"},
    {438, "Substrate-to-cell yield coefficient", "Coeficiente de rendimento de substrato em células"},
    {439, "Substrate-to-product yield coefficient", "Coeficiente de rendimento de substrato em produto"},
    {440, "Cell maintenance coefficient", "Coeficiente de manutenção celular"},
    {441, "Cell death constant", "Constante de morte celular"},
    {442, "Product degradation constant", "Constante de degradação do produto"},
    {443, "Value of substrate concentration when cell death starts", "Valor da concentração de substrato a partir da qual inicia a morte celular"},
    {444, "Constant of production associated with cell growth", "Constante de produção associada ao crescimento celular"},
    {445, "Constant of production not associated with cell growth", "Constante de produção não associada ao crescimento celular"},
    {446, "Value of substrate concentration when product formation starts", "Valor da concentração de substrato a partir da qual inicia a produção de produto"},
    {500, "**********Estimated parameters**********", "**********Parâmetros estimados**********"},
    {501, "Sum of squared errors =", "Soma do quadrado dos erros = "},
    {502, "Square error =", "Erro quadrático = "},
    {503, "End of estimation.", "Fim do ajuste."},
    {504, "Did not converge. Reducing the parameter EPS or increasing ITER or both,", "Não convergiu. Reduzir o parâmetro EPS ou aumentar ITER ou ambos,"},
    {505, "increase parameters population size, crossover probability or scale parameter.", "aumentar parâmetros tamanho da população, probabilidade crossover ou parâmetro de escala."},
    {506, "Report of estimated kinetic parameters", "Relatório do ajuste de parâmetros cinéticos"},
    {507, "Type of cultivation: Batch", "Tipo de cultivo: Batelada"},
    {508, "Number of experiments added: ", "Número de experimentos adicionados: "},
    {509, "Conditions of the experiment: ", "Condições do experimento: "},
    {510, "Initial values of estimated variables: ", "Valores iniciais das variáveis ajustadas: "},
    {511, "Upper bound of ", "Limite superior de "},
    {512, "Lower bound of ", "Limite inferior de "},
    {513, "Estimated variables: ", "Variáveis ajustadas: "},
    {514, "Sum of squared errors: ", "Soma do quadrado dos erros: "},
    {515, "Version 1.0", "Versão 1.0"},
    {516, "**********Estimated parameters with deviation**********", "**********Parâmetros estimados com desvio**********"},

    // Why a file cannot be read or written, in the order of FileReason; {1} is the detail.
    {TextId::FileCannotOpen, "the file cannot be opened: {1}", "o arquivo não pode ser aberto: {1}"},
    {TextId::FileNotRegular, "this is no regular file; name a file", "isto não é um arquivo comum; indique um arquivo"},
    {TextId::FileCannotRead, "the file cannot be read: {1}", "o arquivo não pode ser lido: {1}"},
    {TextId::FileCannotWrite, "the file cannot be written: {1}; what was there is unchanged", "o arquivo não pode ser gravado: {1}; o que havia continua como estava"},
    {TextId::FileEnds, "the file ends here; it is cut short or its counts are too large", "o arquivo termina aqui; está incompleto ou suas contagens são grandes demais"},
    {TextId::FileNotANumber, "\"{1}\" is not a number; numbers have a decimal point", "\"{1}\" não é um número; números têm ponto decimal"},
    {TextId::FileNotAWholeNumber, "\"{1}\" is not a whole number; correct it", "\"{1}\" não é um número inteiro; corrija-o"},
    {TextId::FileOutOfRange, "\"{1}\" is out of range; correct it", "\"{1}\" está fora dos limites; corrija-o"},
    {TextId::FileMissingBar, "the line \"{1}\" lacks a value ended by \"|\"; write it as |t|Cs|Cx|Cp|", "na linha \"{1}\" falta um valor terminado por \"|\"; escreva-a como |t|Cs|Cx|Cp|"},
    {TextId::FileTooManyExperiments, "\"{1}\": at most nine experiments take part in a cultivation; remove the others", "\"{1}\": um cultivo admite no máximo nove experimentos; retire os demais"},
    {TextId::FileBadLetter, "\"{1}\" is no letter of Windows-1252, the file's encoding; replace it", "\"{1}\" não é uma letra do Windows-1252, a codificação do arquivo; substitua-a"},
    {TextId::FileLineBreak, "\"{1}\" has a line break; write it on one line", "\"{1}\" tem uma quebra de linha; escreva-o em uma só linha"},
    {TextId::FileHoldsConditions, "the file holds cultivation conditions; open it as such", "o arquivo contém condições de cultivo; abra-o como tal"},
    {TextId::FileHoldsExperiments, "the file holds experiments; open it as such", "o arquivo contém experimentos; abra-o como tal"},
    {TextId::FileUnknownChoice, "\"{1}\" is not known and selects nothing; choose, and save the conditions again", "\"{1}\" não é conhecido e não seleciona nada; escolha e salve as condições de novo"},
    {TextId::FileFittedTwice, "\"{1}\" stands for a parameter that is fitted already; remove one of the two, with its bounds, and count one less", "\"{1}\" indica um parâmetro que já é ajustado; retire um dos dois, com seus limites, e conte um a menos"},
    {TextId::FileBadByte, "the byte {1} is no letter, although the file begins as UTF-8; save it as UTF-8 or as Windows-1252", "o byte {1} não é uma letra, embora o arquivo comece como UTF-8; salve-o como UTF-8 ou como Windows-1252"},

    // The items of a file, in the order of FileField; {1} is the item's number.
    {TextId::FieldNone, "", ""},
    {TextId::FieldTitle, "title", "título"},
    {TextId::FieldExperimentCount, "number of experiments", "número de experimentos"},
    {TextId::FieldExperimentNumber, "experiment number", "número do experimento"},
    {TextId::FieldDescription, "description {1}", "descrição {1}"},
    {TextId::FieldPointCount, "number of points", "número de pontos"},
    {TextId::FieldFinalTime, "final time", "tempo final"},
    {TextId::FieldMarker, "marker {1}", "marcador {1}"},
    {TextId::FieldLine, "line style", "estilo da linha"},
    {TextId::FieldColour, "colour", "cor"},
    {TextId::FieldVisibility, "visibility", "visibilidade"},
    {TextId::FieldPoint, "point {1}", "ponto {1}"},
    {TextId::FieldCondition, "value {1} of the conditions", "valor {1} das condições"},
    {TextId::FieldOptionText, "option text {1}", "texto de opção {1}"},
    {TextId::FieldFittedCount, "number of fitted parameters", "número de parâmetros ajustados"},
    {TextId::FieldUpperBound, "upper bound {1}", "limite superior {1}"},
    {TextId::FieldLowerBound, "lower bound {1}", "limite inferior {1}"},
    {TextId::FieldParameterCode, "parameter code {1}", "código do parâmetro {1}"},
    {TextId::FieldStartValue, "start value {1}", "valor inicial {1}"},
    {TextId::LineOfFile, "Line {1}", "Linha {1}"},

    // The kinds of arithmetic fault, in the order of FaultKind.
    {TextId::DivisionByZero, "division by zero", "divisão por zero"},
    {TextId::Overflow, "overflow", "valor grande demais"},
    {TextId::PowerWithoutValue, "power without a value", "potência sem valor"},

    // Where an arithmetic fault arose, in the order of FaultTerm.
    {TextId::InSubstratePower, "in the substrate power Cs^u", "na potência do substrato Cs^u"},
    {TextId::InCellPower, "in the cell power of the Contois term", "na potência das células do termo de Contois"},
    {TextId::InSubstrateInhibition, "in the substrate-inhibition term", "no termo de inibição pelo substrato"},
    {TextId::InSubstrateQuotient, "in the substrate quotient", "no quociente do substrato"},
    {TextId::InLevenspiel, "in the Levenspiel term", "no termo de Levenspiel"},
    {TextId::InLee, "in the Lee term", "no termo de Lee"},
    {TextId::InAiba, "in the Aiba term", "no termo de Aiba"},
    {TextId::InHoppe, "in the Hoppe term", "no termo de Hoppe"},
    {TextId::InCellBalance, "in the cell balance", "no balanço de células"},
    {TextId::InSubstrateBalance, "in the substrate balance", "no balanço de substrato"},
    {TextId::InProductBalance, "in the product balance", "no balanço de produto"},
    {TextId::InConcentration, "in a computed concentration", "em uma concentração calculada"},
    {TextId::InEvaluationCount, "in the count of rate evaluations", "na contagem de avaliações das taxas"},
    {TextId::InInterpolation, "in the interpolation at a measured time", "na interpolação em um tempo medido"},
    {TextId::InScore, "in the sum of squared errors", "na soma do quadrado dos erros"},
    {TextId::InDeviations, "in the deviations", "nos desvios"},
    {TextId::FaultExperiment, "experiment {1}", "experimento {1}"},
    {TextId::FaultPoint, "point {1} of {2}", "ponto {1} de {2}"},
    {TextId::CounterFull, "the counter of rate evaluations, which ends at 2147483647, is full; choose a smaller population (NPOP), fewer generations or fewer experiments", "o contador de avaliações das taxas, que vai até 2147483647, está cheio; escolha uma população (NPOP) menor, menos gerações ou menos experimentos"},

    // The end of a search.
    {TextId::BestOfGeneration, "The best values found before this are those of generation {1}.", "Os melhores valores encontrados antes disso são os da geração {1}."},
    {TextId::BestOfPopulation, "The best values found before this are those of the initial population.", "Os melhores valores encontrados antes disso são os da população inicial."},
    {TextId::NoDeviations, "The deviations could not be computed: {1}.", "Os desvios não puderam ser calculados: {1}."},
    {TextId::DataDoNotDetermine, "the measured values are too few, or do not determine each of the parameters", "os valores medidos são poucos, ou não determinam cada um dos parâmetros"},
    {TextId::EvaluationLimitReached, "Stopped at the limit of simulations; another seed (IU) or narrower bounds may find a better result.", "Interrompido no limite de simulações; outra semente (IU) ou limites mais estreitos podem encontrar um resultado melhor."},
    {TextId::StartsThatAgree, "Starts that reached this optimum: {1} of {2}", "Partidas que chegaram a este ótimo: {1} de {2}"},

    // Experiments and conditions.
    {TextId::NumbersRepeated, "These numbers belong to more than one experiment: {1}. Saving changes the experiment that is shown. To give it another number, save it with that number and delete the old one by its place.", "Estes números pertencem a mais de um experimento: {1}. Salvar altera o experimento exibido. Para dar-lhe outro número, salve-o com esse número e exclua o antigo pela sua posição."},
    {TextId::ConditionsMissing, "Conditions are missing for these experiments: {1}.", "Faltam as condições destes experimentos: {1}."},
    {TextId::NoYields, "Choose the yield coefficients: stoichiometric or global.", "Escolha os coeficientes de rendimento: estequiométricos ou globais."},

    // What the data look like, in the order of RemarkKind; {1} is the experiment's number, {2} the row,
    // {3} the variable.
    {TextId::FallingCells, "experiment {1}, row {2}: {3} falls from {4} to {5} g/L; a model follows that only with Kd, from CsAst1 on", "experimento {1}, linha {2}: {3} cai de {4} a {5} g/L; um modelo só acompanha isso com Kd, a partir de CsAst1"},
    {TextId::RisingSubstrate, "experiment {1}, row {2}: {3} rises from {4} to {5} g/L, which it does in no batch", "experimento {1}, linha {2}: {3} sobe de {4} a {5} g/L, o que não ocorre em batelada"},
    {TextId::ProductBeforeGrowth, "experiment {1}, row {2}: {4} g/L of product with only {5} g/L of new cells: product before growth", "experimento {1}, linha {2}: {4} g/L de produto com só {5} g/L de células novas: produto antes do crescimento"},
    {TextId::YieldTooHigh, "experiment {1}, row {2}: {4} g/L of cells and product from {5} g/L of substrate, more than is possible; look at the units", "experimento {1}, linha {2}: {4} g/L de células e produto a partir de {5} g/L de substrato, mais que o possível; verifique as unidades"},
    {TextId::FirstSampleLate, "experiment {1}, row {2}: the first sample is at {4} h, but a simulation begins at 0 h", "experimento {1}, linha {2}: a primeira amostra é de {4} h, mas a simulação começa em 0 h"},
    {TextId::TimesUnsorted, "experiment {1}, row {2}: {4} h stands after {5} h; sort the rows by time", "experimento {1}, linha {2}: {4} h vem depois de {5} h; ordene as linhas pelo tempo"},
    {TextId::FinalTimeEarly, "experiment {1}, row {2}: the final time, {4} h, is before the last sample, at {5} h", "experimento {1}, linha {2}: o tempo final, {4} h, é anterior à última amostra, de {5} h"},
    {TextId::FarOff, "experiment {1}, row {2}: {3} = {4} g/L lies far off the other points, which let expect {5} g/L", "experimento {1}, linha {2}: {3} = {4} g/L está longe dos outros pontos, que fazem esperar {5} g/L"},
    {TextId::LooksLikePercent, "experiment {1}, row {2}: the highest {3} is {4}: are these g/L, or %?", "experimento {1}, linha {2}: o maior {3} é {4}: são g/L ou %?"},
    {TextId::TooConcentrated, "experiment {1}, row {2}: {3} = {4} is more than a broth holds: are these g/L, or mg/L?", "experimento {1}, linha {2}: {3} = {4} é mais do que um caldo comporta: são g/L ou mg/L?"},
    {TextId::LooksLikeMinutes, "experiment {1}, row {2}: the cells double in {4} h at best: are the times hours, or minutes?", "experimento {1}, linha {2}: as células dobram em {4} h, no melhor caso: os tempos são horas ou minutos?"},
    {TextId::LooksLikeDays, "experiment {1}, row {2}: the cells double in {4} h: are the times hours, or days?", "experimento {1}, linha {2}: as células dobram em {4} h: os tempos são horas ou dias?"},

    // Why values and ranges are proposed.
    {TextId::FromFirstSample, "the earliest sample, at {1} h", "a amostra mais antiga, de {1} h"},
    {TextId::FromLaterSample, "the earliest sample has no cells; {1} g/L at {2} h, taken back at {3} 1/h", "a amostra mais antiga não tem células; {1} g/L em {2} h, levados para trás com {3} 1/h"},
    {TextId::FromLastSample, "the time of the last sample", "o tempo da última amostra"},
    {TextId::CellYield, "slope of cells formed over substrate used, +/- {1} (regression through 0 over {2} samples of all experiments)", "inclinação de células formadas por substrato consumido, +/- {1} (regressão por 0 com {2} amostras de todos os experimentos)"},
    {TextId::ProductYield, "slope of product formed over substrate used, +/- {1} (regression through 0 over {2} samples of all experiments)", "inclinação de produto formado por substrato consumido, +/- {1} (regressão por 0 com {2} amostras de todos os experimentos)"},
    {TextId::SharedYield, "slope of cells and product formed over substrate used, +/- {1} (regression through 0 over {2} samples of all experiments); the data do not tell the two yields apart", "inclinação de células e produto formados por substrato consumido, +/- {1} (regressão por 0 com {2} amostras de todos os experimentos); os dados não distinguem os dois rendimentos"},
    {TextId::YieldOfAlfa, "Yxs times Alfa, {1} by the regression of product on growth and cells", "Yxs vezes Alfa, {1} pela regressão do produto sobre crescimento e células"},
    {TextId::NoProductYield, "no product is measured: without effect", "nenhum produto foi medido: sem efeito"},
    {TextId::AlfaOfYields, "product over cells formed: slopes over substrate used of {1} and {2}", "produto por células formadas: inclinações por substrato consumido de {1} e {2}"},
    {TextId::ProductionRegression, "regression of product formed on cells formed and on cells times hours ({1} samples of all experiments)", "regressão do produto formado sobre células formadas e sobre células vezes horas ({1} amostras de todos os experimentos)"},
    {TextId::ProductOverCells, "slope of product formed over cells times hours, +/- {1} (regression through 0 over {2} samples of all experiments)", "inclinação de produto formado por células vezes horas, +/- {1} (regressão por 0 com {2} amostras de todos os experimentos)"},
    {TextId::BetaFromStart, "the highest Cs: Beta acts from the start", "o maior Cs: Beta atua desde o início"},
    {TextId::DeathFromFall, "mean slope of ln Cx behind its highest value ({1} experiment(s))", "inclinação média de ln Cx depois do maior valor ({1} experimento(s))"},
    {TextId::DeathBelow, "the highest Cs of a first sample with fewer cells", "o maior Cs de uma primeira amostra com menos células"},
    {TextId::NoDeath, "the cells do not fall", "as células não caem"},
    {TextId::LeftOut, "left out of a first fit", "fora de um primeiro ajuste"},
    {TextId::OfSteepestGrowth, "{2} to {3} times {1} 1/h, the steepest rise of ln Cx over three samples", "{2} a {3} vezes {1} 1/h, a maior subida de ln Cx em três amostras"},
    {TextId::OfHighestCs, "{2} to {3} times {1} g/L, the highest Cs", "{2} a {3} vezes {1} g/L, o maior Cs"},
    {TextId::OfHighestCsToU, "half-saturation at {2} to {3} times {1} g/L, the highest Cs; Ks is that to the power u", "meia-saturação em {2} a {3} vezes {1} g/L, o maior Cs; Ks é isso elevado a u"},
    {TextId::OfCsOverCx, "{2} to {3} times {1}, the highest Cs over the highest Cx", "{2} a {3} vezes {1}, o maior Cs sobre o maior Cx"},
    {TextId::OfHighestCp, "{2} to {3} times {1} g/L, the highest Cp", "{2} a {3} vezes {1} g/L, o maior Cp"},
    {TextId::OfInverseCp, "{2} to {3} times {1} L/g, one over the highest Cp", "{2} a {3} vezes {1} L/g, o inverso do maior Cp"},
    {TextId::OfHighestCx, "{2} to {3} times {1} g/L, the highest Cx", "{2} a {3} vezes {1} g/L, o maior Cx"},
    {TextId::UsualExponent, "the usual range of the exponent, {2} to {3}", "a faixa usual do expoente, {2} a {3}"},

    // The windows.
    {TextId::WriteWithoutEntries, ". Its entries will not be in the file. Write the file without them?", ". O que foi digitado não estará no arquivo. Gravar o arquivo assim mesmo?"},
    {TextId::BeforeRun, " for the calculation to use them.", " para que o cálculo as use."},
    {TextId::NoPrinter, "No printer is set up on this computer.", "Nenhuma impressora está instalada neste computador."},
    {TextId::PrinterRefused, "The chosen printer cannot be reached.", "A impressora escolhida não pode ser acessada."},
    {TextId::AskToSavePdf, "Save the page as a PDF file instead?", "Deseja salvar a página em um arquivo PDF?"},

    // The command line.
    {TextId::NotANumber, "{1}: \"{2}\" is not a number; write it with a decimal point, such as 0.8", "{1}: \"{2}\" não é um número; escreva-o com ponto decimal, como 0.8"},
    {TextId::DecimalComma, "{1}: \"{2}\" has a comma; write the number with a decimal point, such as 0.8", "{1}: \"{2}\" tem uma vírgula; escreva o número com ponto decimal, como 0.8"},
    {TextId::Negative, "{1}: \"{2}\" is negative; give a value of 0 or more", "{1}: \"{2}\" é negativo; dê um valor igual ou maior que 0"},
    {TextId::Malformed, "{1}: \"{2}\" should read {3}", "{1}: \"{2}\" deve ter a forma {3}"},
    {TextId::UnknownName, "{1}: there is no parameter \"{2}\"; the names are {3}", "{1}: não existe o parâmetro \"{2}\"; os nomes são {3}"},
    {TextId::UnknownModel, "there is no model \"{1}\"; \"velmora-cli models\" lists the models", "não existe o modelo \"{1}\"; \"velmora-cli models\" lista os modelos"},
    {TextId::NoSuchPlace, "--set: \"{1}\" names place {2}, but the file has {3} experiment(s)", "--set: \"{1}\" indica a posição {2}, mas o arquivo tem {3} experimento(s)"},
    {TextId::SetAndFitted, "{1} is both set and fitted; its start value stands in --fit", "{1} é fixado e ajustado ao mesmo tempo; o valor inicial fica em --fit"},
    {TextId::FittedTwice, "--fit: {1} is given twice", "--fit: {1} aparece duas vezes"},
    {TextId::FitWithManual, "--fit needs a method that searches, LM or ED; the method Manual only simulates", "--fit requer um método que busca, LM ou ED; o método Manual apenas simula"},
    {TextId::SettingOfED, "{1} is a setting of the differential evolution; add --method ED.", "{1} é um ajuste da evolução diferencial; acrescente --method ED."},
    {TextId::SameFile, "the output {1} is the input file; choose another name", "a saída {1} é o arquivo de entrada; escolha outro nome"},
    {TextId::SeeHelp, "; see --help", "; veja --help"},
    {TextId::NoSuchCommand, "there is no command \"{1}\"", "não existe o comando \"{1}\""},

    // Rules that only the command line has.
    {TextId::ModelLacks, "the model {1} has no parameter {2}; its parameters are {3}", "o modelo {1} não tem o parâmetro {2}; seus parâmetros são {3}"},
    {TextId::ValueMissing, "the model {1} needs {2}: give --set {2}=VALUE or --fit {2}=START:LOWER:UPPER", "o modelo {1} precisa de {2}: dê --set {2}=VALOR ou --fit {2}=INICIAL:INFERIOR:SUPERIOR"},
    {TextId::ValueNotSet, "the model {1} needs {2}: give --set {2}=VALUE", "o modelo {1} precisa de {2}: dê --set {2}=VALOR"},
    {TextId::ModelNotTold, "{1} cannot be given: the conditions do not tell their model; name it with --model", "{1} não pode ser dado: as condições não dizem qual é o seu modelo; indique-o com --model"},
    {TextId::AlfaDecided, "Alfa cannot be set here: global yields make it Yps/Yxs, and PNAC makes it 0", "Alfa não pode ser fixado aqui: com rendimentos globais vale Yps/Yxs e com PNAC vale 0"},
    {TextId::BetaNotOffered, "{1} cannot be set with PAC, where production goes with growth alone", "{1} não pode ser fixado com PAC, em que a produção só acompanha o crescimento"},
    {TextId::TooManyExperiments, "the file has {1} experiments; at most {2} take part in a cultivation", "o arquivo tem {1} experimentos; um cultivo admite no máximo {2}"},
    {TextId::NumbersDiffer, "place {1}: the experiment has the number {2} but its conditions have {3}; the two files do not belong together", "posição {1}: o experimento tem o número {2}, mas suas condições têm {3}; os dois arquivos não correspondem"},
    {TextId::SimulationOnly, "the conditions were saved for simulation only (method Manual); use \"velmora-cli simulate\", or save them with the method ED", "as condições foram salvas apenas para simulação (método Manual); use \"velmora-cli simulate\" ou salve-as com o método ED"},
    {TextId::NoPoints, "it has no measured point to start from; set Cx0, Cs0 and Cp0", "não há ponto medido inicial; fixe Cx0, Cs0 e Cp0"},
    {TextId::NoSuchLabel, "--only: {1} has no experiment \"{2}\"; it has {3}", "--only: {1} não tem o experimento \"{2}\"; tem {3}"},
    {TextId::InExperiment, "experiment {1} (place {2}): {3}", "experimento {1} (posição {2}): {3}"},

    // Tables from a spreadsheet.
    {TextId::LabelMissing, "there is no experiment \"{1}\"; the table has {2}", "não há o experimento \"{1}\"; a tabela tem {2}"},
    {TextId::NotUtf8, "the table is not UTF-8 text; save it as CSV UTF-8", "a tabela não é texto UTF-8; salve-a como CSV UTF-8"},
    {TextId::NoHeader, "there is no header line with the columns t, Cs, Cx and Cp", "falta a linha de cabeçalho com as colunas t, Cs, Cx e Cp"},
    {TextId::MissingColumn, "there is no column {1}; the header needs the columns t, Cs, Cx and Cp", "falta a coluna {1}; o cabeçalho precisa das colunas t, Cs, Cx e Cp"},
    {TextId::ColumnTwice, "two columns begin with {1}; rename or remove one", "duas colunas começam com {1}; renomeie ou remova uma"},
    {TextId::NoRows, "there are no rows of data", "não há linhas de dados"},
    {TextId::BadQuote, "a double quote is not closed, or text follows it in its cell", "há aspas sem fechamento ou com texto depois delas na célula"},
    {TextId::TooManyCells, "row {1} has {2} cells but the header has {3}; with commas between cells, write numbers with a decimal point", "a linha de dados {1} tem {2} células, mas o cabeçalho tem {3}; com vírgulas entre células, escreva os números com ponto decimal"},
    {TextId::AtCell, "row {1}, column {2}: {3}", "linha de dados {1}, coluna {2}: {3}"},
    {TextId::CellEmpty, "the cell is empty; fill it or remove the row", "a célula está vazia; preencha-a ou remova a linha"},
    {TextId::CellNotANumber, "\"{1}\" is not a number (thousands separators are not accepted)", "\"{1}\" não é um número (separadores de milhar não são aceitos)"},
    {TextId::CellNegative, "\"{1}\" is negative; measured values are 0 or more", "\"{1}\" é negativo; valores medidos são iguais ou maiores que 0"},
    {TextId::CellMixedMarks, "\"{1}\" has another decimal mark than the numbers before it; use one in the whole table", "\"{1}\" tem outro separador decimal que os números anteriores; use um só em toda a tabela"},
    {TextId::LabelUnfit, "\"{1}\" holds a comma, a control character or a letter outside Windows-1252, which a description in an experiment file cannot hold; write it without", "\"{1}\" contém vírgula, caractere de controle ou letra fora do Windows-1252, que a descrição no arquivo de experimentos não comporta; retire-os"},
    {TextId::TooManyPoints, "an experiment has at most 32767 points", "um experimento tem no máximo 32767 pontos"},
    {TextId::TooManyInTable, "there are more than {1} experiments; split the table", "há mais de {1} experimentos; divida a tabela"},

    // What the commands print.
    {TextId::ModelHeading, "Model", "Modelo"},
    {TextId::ParametersHeading, "Parameters", "Parâmetros"},
    {TextId::EquationHeading, "Specific growth rate", "Velocidade específica de crescimento"},
    {TextId::ExperimentColumn, "Experiment", "Experimento"},
    {TextId::ExperimentHeading, "Experiment {1} (place {2})", "Experimento {1} (posição {2})"},
    {TextId::ExperimentsWithValues, "Experiments: {1} ({2} measured values)", "Experimentos: {1} ({2} valores medidos)"},
    {TextId::Generations, "Generations: {1}", "Gerações: {1}"},
    {TextId::GenerationLine, "generation {1}   best score {2}   {3} s", "geração {1}   melhor soma {2}   {3} s"},
    {TextId::StartScore, "Sum of squared errors of the start values = {1}", "Soma do quadrado dos erros dos valores iniciais = {1}"},
    {TextId::WorseThanStart, "The result is worse than the start values; a larger --npop or another --iu may find a better one.", "O resultado é pior que os valores iniciais; um --npop maior ou outro --iu pode encontrar um melhor."},
    {TextId::StartLine, "start {1}   best score {2}   {3} s", "partida {1}   melhor soma {2}   {3} s"},
    {TextId::Score, "Score", "Total"},
    {TextId::Sum, "Sum", "Soma"},
    {TextId::UnscaledAt, " (place {1}, {2})", " (posição {1}, {2})"},
    {TextId::IsExperiments, "{1}: experiments, {2} of them", "{1}: experimentos, em número de {2}"},
    {TextId::IsConditions, "{1}: cultivation conditions of {2} experiment(s)", "{1}: condições de cultivo de {2} experimento(s)"},
    {TextId::NoBatchLine, "The third line is not \"Batelada\": the file reads as holding no experiments. Save the conditions again from the cultivation window, or with \"velmora-cli conditions\".", "A terceira linha não é \"Batelada\": o arquivo é lido como não tendo experimentos. Salve as condições de novo na janela de cultivo, ou com \"velmora-cli conditions\"."},
    {TextId::NeitherFile, "the second line is neither \"Dados de entrada\" (experiments) nor \"Condições de cultivo\" (conditions); this is no file of the program's", "a segunda linha não é \"Dados de entrada\" (experimentos) nem \"Condições de cultivo\" (condições); o arquivo não é do programa"},
    {TextId::ExperimentsWanted, "this is a conditions file; an experiment file belongs here", "este é um arquivo de condições; aqui cabe um arquivo de experimentos"},
    {TextId::ConditionsWanted, "this is an experiment file; a conditions file belongs here", "este é um arquivo de experimentos; aqui cabe um arquivo de condições"},
    {TextId::ExperimentLine, "  {1}. number {2}, {3} point(s), final time {4} h, \"{5}\"", "  {1}. número {2}, {3} ponto(s), tempo final {4} h, \"{5}\""},
    {TextId::ConditionsLine, "  {1}. number {2}, model {3}, method {4}, production {5}, {6}", "  {1}. número {2}, modelo {3}, método {4}, produção {5}, {6}"},
    {TextId::NoCatalogueModel, "none of the 32", "nenhum dos 32"},
    {TextId::GlobalYields, "global yields", "rendimentos globais"},
    {TextId::StoichiometricYields, "stoichiometric yields", "rendimentos estequiométricos"},
    {TextId::FittedLine, "  fitted: {1} from {2} between {3} and {4}", "  ajustado: {1} a partir de {2} entre {3} e {4}"},
    {TextId::NoParameterFitted, "  no parameter is fitted", "  nenhum parâmetro é ajustado"},
    {TextId::ProposedLine, "  {1} = {2}: {3}", "  {1} = {2}: {3}"},
    {TextId::ProposedLineAt, "  {4}:{1} = {2}: {3}", "  {4}:{1} = {2}: {3}"},
    {TextId::ProposedFit, "  {1} from {2} between {3} and {4}: {5}", "  {1} a partir de {2} entre {3} e {4}: {5}"},
    {TextId::Written, "{1}: {2} experiment(s) written", "{1}: {2} experimento(s) gravado(s)"},

    // The machine.
    {TextId::OutputFailed, "the output cannot be written: {1}", "a saída não pode ser escrita: {1}"},
    {TextId::NoCharts, "the charts cannot be drawn ({1}); the report is without them", "os gráficos não podem ser desenhados ({1}); o relatório fica sem eles"},
    {TextId::OutOfMemory, "there is not enough memory", "não há memória suficiente"},
    {TextId::OutOfMemoryInFit, "there is not enough memory; a smaller --npop needs less", "não há memória suficiente; um --npop menor precisa de menos"},
});
// clang-format on

constexpr bool ById(const Entry& a, const Entry& b) {
  return a.id < b.id;
}
static_assert(std::is_sorted(kTable.begin(), kTable.end(), ById), "look-up halves a sorted table");

const Entry* Find(TextId id) {
  const auto at =
      std::lower_bound(kTable.begin(), kTable.end(), id,
                       [](const Entry& entry, TextId wanted) { return entry.id < wanted; });
  return at != kTable.end() && at->id == id ? &*at : nullptr;
}

}  // namespace

bool HasText(TextId id) {
  return Find(id) != nullptr;
}

std::string_view Text(TextId id, Language language) {
  const Entry* entry = Find(id);
  assert(entry != nullptr);
  return language == Language::Portuguese ? entry->portuguese : entry->english;
}

std::string Filled(TextId id, Language language, std::span<const std::string_view> arguments) {
  const std::string_view pattern = Text(id, language);
  std::string text;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] != '{') {
      text += pattern[i];
      continue;
    }
    const auto index = static_cast<std::size_t>(pattern[i + 1] - '1');
    assert(index < arguments.size() && pattern[i + 2] == '}');
    text += arguments[index];
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

}  // namespace velmora

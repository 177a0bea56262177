#include "data/FaultDetail.h"

#include <array>
#include <string_view>

#include "app/Bilingual.h"

namespace velmora {
namespace {

/// By FileReason; {1} is the detail.
constexpr auto kReasons = std::to_array<Bilingual>({
    {"the file cannot be opened: {1}", "o arquivo não pode ser aberto: {1}"},
    {"this is no regular file; name a file", "isto não é um arquivo comum; indique um arquivo"},
    {"the file cannot be read: {1}", "o arquivo não pode ser lido: {1}"},
    {"the file cannot be written: {1}; what was there is unchanged",
     "o arquivo não pode ser gravado: {1}; o que havia continua como estava"},
    {"the file ends here; it is cut short or its counts are too large",
     "o arquivo termina aqui; está incompleto ou suas contagens são grandes demais"},
    {"\"{1}\" is not a number; numbers have a decimal point",
     "\"{1}\" não é um número; números têm ponto decimal"},
    {"\"{1}\" is not a whole number; correct it", "\"{1}\" não é um número inteiro; corrija-o"},
    {"\"{1}\" is out of range; correct it", "\"{1}\" está fora dos limites; corrija-o"},
    {"the line \"{1}\" lacks a value ended by \"|\"; write it as |t|Cs|Cx|Cp|",
     "na linha \"{1}\" falta um valor terminado por \"|\"; escreva-a como |t|Cs|Cx|Cp|"},
    {"\"{1}\": at most nine experiments take part in a cultivation; remove the others",
     "\"{1}\": um cultivo admite no máximo nove experimentos; retire os demais"},
    {"\"{1}\" is no letter of Windows-1252, the file's encoding; replace it",
     "\"{1}\" não é uma letra do Windows-1252, a codificação do arquivo; substitua-a"},
    {"\"{1}\" has a line break; write it on one line",
     "\"{1}\" tem uma quebra de linha; escreva-o em uma só linha"},
    {"the file holds cultivation conditions; open it as such",
     "o arquivo contém condições de cultivo; abra-o como tal"},
    {"the file holds experiments; open it as such",
     "o arquivo contém experimentos; abra-o como tal"},
});
static_assert(kReasons.size() == static_cast<std::size_t>(FileReason::HoldsExperiments) + 1);

/// By FileField; {1} is the item's number.
constexpr auto kFields = std::to_array<Bilingual>({
    {"", ""},
    {"title", "título"},
    {"number of experiments", "número de experimentos"},
    {"experiment number", "número do experimento"},
    {"description {1}", "descrição {1}"},
    {"number of points", "número de pontos"},
    {"final time", "tempo final"},
    {"marker {1}", "marcador {1}"},
    {"line style", "estilo da linha"},
    {"colour", "cor"},
    {"visibility", "visibilidade"},
    {"point {1}", "ponto {1}"},
    {"value {1} of the conditions", "valor {1} das condições"},
    {"option text {1}", "texto de opção {1}"},
    {"number of fitted parameters", "número de parâmetros ajustados"},
    {"upper bound {1}", "limite superior {1}"},
    {"lower bound {1}", "limite inferior {1}"},
    {"parameter code {1}", "código do parâmetro {1}"},
    {"start value {1}", "valor inicial {1}"},
});
static_assert(kFields.size() == static_cast<std::size_t>(FileField::FourthValue) + 1);

constexpr Bilingual kLine = {"Line {1}", "Linha {1}"};

/// The pattern with each {1} replaced.
std::string Filled(std::string_view pattern, std::string_view argument) {
  constexpr std::string_view kMark = "{1}";
  std::string text(pattern);
  for (std::size_t at = text.find(kMark); at != std::string::npos;
       at = text.find(kMark, at + argument.size()))
    text.replace(at, kMark.size(), argument);
  return text;
}

std::string FieldOf(const FileFault& fault, Language language) {
  const std::string item = fault.item > 0 ? std::to_string(fault.item) : "";
  std::string field = Filled(kFields[static_cast<std::size_t>(fault.field)].In(language), item);
  if (field.ends_with(' ')) field.pop_back();
  return field;
}

}  // namespace

std::string FaultReason(const FileFault& fault, Language language) {
  std::string text = FieldOf(fault, language);
  if (!text.empty()) text += ": ";
  return text + Filled(kReasons[static_cast<std::size_t>(fault.reason)].In(language), fault.detail);
}

std::string FaultDetail(const FileFault& fault, Language language) {
  std::string text = fault.path + "\n";
  if (fault.line > 0) text += Filled(kLine.In(language), std::to_string(fault.line)) + ", ";
  return text + FaultReason(fault, language);
}

}  // namespace velmora

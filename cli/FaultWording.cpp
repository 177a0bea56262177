// Sentences for the faults of files and of arithmetic.
#include <array>

#include "app/Numbers.h"
#include "cli/Wording.h"
#include "cultivation/FaultDescription.h"

namespace velmora::cli {
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
});
static_assert(kReasons.size() == static_cast<std::size_t>(FileReason::LineBreakInText) + 1);

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

template <class Table, class Enumeration>
std::string_view TextOf(const Table& table, Enumeration value, Language language) {
  return table[static_cast<std::size_t>(value)].In(language);
}

}  // namespace

std::string Wording::Of(const FileFault& fault) const {
  std::string text = PlaceInFile(fault.path, fault.line);
  const std::string item = fault.item > 0 ? std::to_string(fault.item) : "";
  const std::string field = OnOneLine(Filled(TextOf(kFields, fault.field, language_), {item}));
  if (!field.empty()) text += field + ": ";
  return text + Filled(TextOf(kReasons, fault.reason, language_), {fault.detail});
}

std::string Wording::Of(const ArithmeticFault& fault, double time) const {
  const std::string text = FaultDescription(fault, language_);
  if (fault.point == 0) return text;
  return text + ", t = " + Formatted(time, kFour, '.') + " h";
}

}  // namespace velmora::cli

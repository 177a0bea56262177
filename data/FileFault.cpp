#include "data/FileFault.h"

#include "language/Numbers.h"

namespace velmora {
namespace {

static_assert(TextOf(TextId::FileCannotOpen, FileReason::TooLarge) == TextId::FileTooLarge);
static_assert(TextOf(TextId::FieldNone, FileField::FourthValue) == TextId::FieldStartValue);

std::string FieldOf(const FileFault& fault, Language language) {
  const std::string item = fault.item > 0 ? std::to_string(fault.item) : "";
  std::string field = Filled(TextOf(TextId::FieldNone, fault.field), language, {item});
  if (field.ends_with(' ')) field.pop_back();
  return field;
}

}  // namespace

std::string FaultReason(const FileFault& fault, Language language) {
  std::string text = FieldOf(fault, language);
  if (!text.empty()) text += ": ";
  return text + Filled(TextOf(TextId::FileCannotOpen, fault.reason), language, {fault.detail});
}

std::vector<Piece> FaultPieces(const FileFault& fault) {
  return {{TextId::LineOfFile, {std::to_string(fault.line)}},
          ", ",
          {TextOf(TextId::FieldNone, fault.field), {std::to_string(fault.item)}},
          ": ",
          {TextOf(TextId::FileCannotOpen, fault.reason), {fault.detail}}};
}

std::string FaultDetail(const FileFault& fault, Language language) {
  std::string text = fault.path + "\n";
  if (fault.line > 0)
    text += Filled(TextId::LineOfFile, language, {std::to_string(fault.line)}) + ", ";
  return text + FaultReason(fault, language);
}

std::string MegabytesText(std::size_t bytes) {
  constexpr double kMegabyte = 1e6;
  return ShortestText(static_cast<double>(bytes) / kMegabyte);
}

}  // namespace velmora

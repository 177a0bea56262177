#include "cultivation/OpenedConditions.h"

#include <algorithm>
#include <string>
#include <utility>

#include "cultivation/FitSetUp.h"

namespace velmora {
namespace {

bool HoldsSwitchesOf(const Model& model, const ConditionsRow& row) {
  KineticParameters asSet = VectorOf(row);
  SetModelSwitches(model, asSet);
  return asSet == VectorOf(row);
}

/// Whether the fit can be set up as the file has it: parameters of a model that the row allows,
/// inside their bounds.
bool FitMatches(const ConditionsRecord& record, const std::vector<FitVariable>& fitted) {
  const Model* const model = RecognisedModel(record, fitted);
  const std::vector<At> positions = PositionsOf(fitted);
  const bool known = model != nullptr
                         ? std::all_of(positions.begin(), positions.end(),
                                       [&](At position) { return Uses(*model, position); })
                         : !ModelsOf(VectorOf(record.row), positions).empty();
  return known && !RefuseFitRows(StartingFrom(record.row, fitted));
}

void AddNumber(std::string& numbers, std::int16_t number) {
  if (!numbers.empty()) numbers += ", ";
  numbers += std::to_string(number);
}

/// All remarks of a file, a line each.
Message Told(const std::vector<FileFault>& remarks) {
  std::vector<Piece> pieces;
  for (const FileFault& remark : remarks) {
    if (!pieces.empty()) pieces.emplace_back("\n");
    for (Piece& piece : FaultPieces(remark)) pieces.push_back(std::move(piece));
  }
  return Attention(std::move(pieces));
}

Message Told(TextId before, const std::string& numbers, TextId after) {
  return Attention({before, " " + numbers + " ", after});
}

}  // namespace

const Model* RecognisedModel(const ConditionsRecord& record,
                             const std::vector<FitVariable>& fitted) {
  const std::string& name = record.options.model;
  const Model* const named = FindModel(name);
  if (named == nullptr && !name.empty()) return nullptr;
  if (named != nullptr && HoldsSwitchesOf(*named, record.row)) return named;
  const std::vector<const Model*> models = ModelsOf(VectorOf(record.row), PositionsOf(fitted));
  return models.size() == 1 ? models.front() : nullptr;
}

OpenedConditions CompareWithLists(const ConditionsRead& read,
                                  const std::vector<Experiment>& experiments) {
  if (read.experiments == 0 || read.experiments != static_cast<int>(experiments.size()))
    return {Attention({TextId::CountsDiffer}), {}, {}};

  OpenedConditions opened{std::nullopt, read.conditions, {}};
  std::string matching;
  std::string toReview;
  for (int place = 1; place <= read.experiments; ++place) {
    ConditionsRecord& record = opened.conditions.At(place);
    const std::int16_t number = experiments[static_cast<std::size_t>(place) - 1].number;
    const bool matches = record.number == number && FitMatches(record, read.conditions.fitted);
    AddNumber(matches ? matching : toReview, number);
    record.number = number;
  }
  if (!matching.empty())
    opened.messages.push_back(Told(TextId::ConditionsOf, matching, TextId::SuccessfullyInserted));
  if (!toReview.empty())
    opened.messages.push_back(Told(TextId::TheConditionsOf, toReview, TextId::InsertedButReview));
  if (!read.remarks.empty()) opened.messages.push_back(Told(read.remarks));
  if (RecognisedModel(opened.conditions.At(1), read.conditions.fitted) == nullptr)
    opened.messages.push_back(Attention({TextId::ConfirmModel}));
  return opened;
}

}  // namespace velmora

// What an opened conditions file becomes beside the experiments of the list.
#pragma once

#include <optional>
#include <vector>

#include "cultivation/ConditionsFile.h"
#include "cultivation/CultivationConditions.h"
#include "data/Experiment.h"
#include "kinetics/Modelos.h"
#include "language/Message.h"

namespace velmora {

/// The growth model of a stored experiment: the one that its option text names where the row holds
/// its switches; otherwise the only one that switches and fitted parameters allow. Null where they
/// allow none or several, and where the option text names a model that there is not: the user then
/// has to confirm one.
const Model* RecognisedModel(const ConditionsRecord& record,
                             const std::vector<FitVariable>& fitted);

/// The conditions to take over, with what the user is told of them; or the refusal, with nothing to
/// take over.
struct OpenedConditions {
  std::optional<Message> refusal;
  CultivationConditions conditions;
  std::vector<Message> messages;
};

/// Compares the contents of a file, read without a fault, with the experiments of the list. There
/// must be as many. The file's records follow the list's places and take its numbers. An experiment
/// is to be reviewed where its number was another, or the fitted parameters do not belong to its
/// model or lie outside their bounds.
OpenedConditions CompareWithLists(const ConditionsRead& read,
                                  const std::vector<Experiment>& experiments);

}  // namespace velmora

#include "cli/Normalisation.h"

#include <string>
#include <utility>

#include "estimation/Objective.h"
#include "estimation/ResultTexts.h"

namespace velmora::cli {

void WarnOfUnscaled(const ExperimentLists& lists, const Console& console) {
  for (int place = 1; place <= lists.Count(); ++place) {
    const Experiment& experiment = lists.At(place);
    using Named = std::pair<const char*, const std::vector<double>*>;
    for (const auto& [name, values] :
         {Named{"Cx", &experiment.Cx}, Named{"Cs", &experiment.Cs}, Named{"Cp", &experiment.Cp}})
      if (Objective::NormalisationScale(*values) == 0)
        console.Complain(std::string(kNotNormalised) +
                         console.say(TextId::UnscaledAt, {std::to_string(place), name}));
  }
}

}  // namespace velmora::cli

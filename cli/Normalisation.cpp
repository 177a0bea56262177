#include "cli/Normalisation.h"

#include <string>
#include <utility>

#include "estimation/Objective.h"
#include "estimation/ResultTexts.h"

namespace velmora::cli {

void WarnOfUnscaled(const ExperimentLists& lists, const Console& console) {
  for (int place = 1; place <= lists.Count(); ++place) {
    const Class1& experiment = lists.Experiment(place);
    using Named = std::pair<const char*, const std::vector<double>*>;
    for (const auto& [name, values] :
         {Named{"Cx", &experiment.NVetCx}, Named{"Cs", &experiment.NVetCs},
          Named{"Cp", &experiment.NVetCp}})
      if (Objective::NormalisationScale(*values) == 0)
        console.Complain(std::string(kNotNormalised) +
                         console.say(Phrase::UnscaledAt, {std::to_string(place), name}));
  }
}

}  // namespace velmora::cli

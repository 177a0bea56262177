// A filled cultivation form and the experiments that it may belong to.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "cultivation/CultivationForm.h"
#include "data/ExperimentLists.h"

namespace velmora::test {

/// A form that can be saved: Monod, its two parameters fitted.
inline CultivationForm Filled() {
  CultivationForm form;
  form.boxes.fill("0");
  form.At(At::Cx0) = "0.5", form.At(At::Cs0) = "75", form.At(At::T) = "45";
  form.At(At::Yxs) = "0.3", form.At(At::YpsTyped) = "0.45", form.At(At::alpha) = "1.25";
  form.At(At::muMax) = "0.2", form.At(At::Ks) = "10";
  form.fit[0] = {true, "0.05", "1"};
  form.fit[1] = {true, "1", "30"};
  form.method = Method::ED;
  form.production = Production::PAC;
  form.model = "Monod";
  form.modelConfirmed = true;
  return form;
}

/// An experiment of three points; `first` is the first of its Cx.
inline Experiment Measured(std::int16_t number, double first = 0.5) {
  return {number, "", {0, 10, 30}, {first, 3, 20}, {60, 40, 2}, {0, 4, 25}, 30, true};
}

/// Lists of such experiments, each with its number for the colour.
inline ExperimentLists Lists(std::initializer_list<std::int16_t> numbers) {
  ExperimentLists lists;
  for (const std::int16_t number : numbers) lists.Append(Measured(number), {"", number, 1, true});
  return lists;
}

}  // namespace velmora::test

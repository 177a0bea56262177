// The report of a comparison of models.
#pragma once

#include <optional>
#include <span>
#include <string>

#include "data/FileFault.h"
#include "inference/ComparisonTexts.h"
#include "report/RichText.h"

namespace velmora {

/// The ranked table, what is to be said of it, and the best model with its equation and parameters.
rich::Document ComparisonDocument(const Comparison& comparison,
                                  std::span<const Experiment> experiments, TextStyle style);

/// Writes it to `path` as rich text; what was there is replaced only by the whole new file.
std::optional<FileFault> SaveComparison(const Comparison& comparison,
                                        std::span<const Experiment> experiments, TextStyle style,
                                        const std::string& path);

}  // namespace velmora

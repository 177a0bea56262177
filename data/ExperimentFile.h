// The experiment file: the whole experiment list as text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/ExperimentLists.h"
#include "data/FileFault.h"

namespace velmora {

/// What reading came to: the experiments that were appended, and the fault that ended it, if any.
struct ExperimentsRead {
  int appended = 0;
  std::optional<FileFault> fault;
};

/// Appends the file's experiments to `lists`, in file order. After a fault the experiments read
/// before it stay in the lists. A field ends at a comma or at the line's end, leading blanks are
/// passed over; numbers have a decimal point. The file is Windows-1252, or UTF-8 where it begins
/// with a byte order mark.
ExperimentsRead ReadExperiments(const std::string& path, ExperimentLists& lists);

/// As `ReadExperiments`, from a file's bytes; `path` only names the file in a fault.
ExperimentsRead ReadExperimentBytes(std::string_view bytes, const std::string& path,
                                    ExperimentLists& lists);

/// Whether the file holds cultivation conditions in place of experiments.
bool HoldsConditions(const std::string& path);

/// The file's text for the lists, UTF-8, lines ended by CR LF.
std::string ExperimentText(const ExperimentLists& lists);

/// Writes the lists to `path`, as Windows-1252; what was there is replaced only by the whole new
/// file. Nothing is written where a description holds a letter that Windows-1252 lacks or a line
/// break.
std::optional<FileFault> WriteExperiments(const ExperimentLists& lists, const std::string& path);

}  // namespace velmora

// Which of the program's two files a text is; their readers do not look at the titles.
#pragma once

#include <string>
#include <string_view>

#include "cli/Wording.h"

namespace velmora::cli {

enum class FileKind { Experiments, Conditions, Unknown };

/// By the second line of a file's bytes.
FileKind KindOf(std::string_view bytes);

/// Whether the third line is "Batelada", without which a conditions file reads as no experiments.
bool HasBatchLine(std::string_view bytes);

/// The file's bytes. Throws a `Failure` (File) where it cannot be read, or is the other kind.
std::string LoadBytes(const std::string& path, FileKind wanted, const Wording& say);

}  // namespace velmora::cli

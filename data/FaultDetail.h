// Why a file could not be read or written, in words.
#pragma once

#include <string>

#include "app/Texts.h"
#include "data/FileFault.h"

namespace velmora {

/// The field and the reason, with what to do, on one line of UTF-8.
std::string FaultReason(const FileFault& fault, Language language);

/// The file's path, and on a line below it the line, the field and the reason.
std::string FaultDetail(const FileFault& fault, Language language);

}  // namespace velmora

// The manual page of the command line.
#pragma once

#include <string>

#include "packaging/CommandTable.h"

namespace velmora::packaging {

/// The words of a manual page that are no text of the program.
struct ManualWords {
  const char* name;
  const char* synopsis;
  const char* description;
  const char* options;
  const char* commands;
  const char* seeAlso;
  const char* purpose;   // one line, for the index of pages
  const char* volume;    // what section 1 holds
  const char* required;  // beside an option that must be given
  const char* command;   // what stands for any command, and for any option
  const char* option;
};

extern const ManualWords kEnglishManual;
extern const ManualWords kPortugueseManual;

/// The page in the typesetter's language of section 1, UTF-8. `date` is yyyy-mm-dd.
std::string ManualPage(const CommandTable& table, const ManualWords& words,
                       const std::string& date);

}  // namespace velmora::packaging

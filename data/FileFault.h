// Why a file could not be read or written, as a value and in words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "language/Message.h"
#include "language/Texts.h"

namespace velmora {

/// How many bytes are read of a file unless it is said otherwise: 64 MB.
inline constexpr std::size_t kUsualLimit = 64'000'000;

/// A limit in MB.
std::string MegabytesText(std::size_t bytes);

/// `TextId` words the reasons and the fields in the same order.
enum class FileReason : std::uint8_t {
  CannotOpen,          // detail: the system's reason
  NotARegularFile,     // a directory, a device, a pipe
  CannotRead,          // detail: the system's reason
  CannotWrite,         // detail: the system's reason; what was there is untouched
  EndOfFile,           // the file ends where `field` should stand
  NotANumber,          // detail: the text found
  NotAWholeNumber,     // detail: the text found
  OutOfRange,          // detail: the text found
  MissingBar,          // a point line with fewer than four values ended by "|"
  TooManyExperiments,  // more than the nine of a cultivation
  BadLetter,           // detail: the letter that Windows-1252 lacks, or a byte that is none in hex
  LineBreakInText,     // a text that is to fill one line holds a line break
  HoldsConditions,     // a conditions file where an experiment file was to be read
  HoldsExperiments,    // the other way round
  UnknownChoice,       // detail: the text or value that stands for no choice
  FittedTwice,         // detail: the code of a parameter that is fitted already
  BadByte,             // detail: the byte of a UTF-8 file that is no letter, in hex
  TooLarge,            // detail: the limit in MB
};

/// The item of a file that a fault is about.
enum class FileField : std::uint8_t {
  None,
  Title,
  ExperimentCount,
  ExperimentNumber,
  Description,
  PointCount,
  FinalTime,
  Marker,
  Line,
  Colour,
  Visibility,
  Point,      // a measured point's line
  Condition,  // a value of a conditions row
  OptionText,
  FittedCount,
  UpperBound,
  LowerBound,
  ParameterCode,
  FourthValue,
};

struct FileFault {
  FileReason reason = FileReason::CannotOpen;
  std::string path;
  int line = 0;  // counts from 1; 0 where no line is concerned
  FileField field = FileField::None;
  // Which point, row position, option text or fitted parameter, from 1; for a description or marker
  // that cannot be written, the experiment's place. 0 where the line tells it all.
  int item = 0;
  std::string detail{};  // UTF-8, at most some dozens of characters of the text found

  friend bool operator==(const FileFault&, const FileFault&) = default;
};

/// The field and the reason, with what to do, on one line of UTF-8.
std::string FaultReason(const FileFault& fault, Language language);

/// "Line 12, option text 1: " and the reason, of a fault whose line and item are known.
std::vector<Piece> FaultPieces(const FileFault& fault);

/// The file's path, and on a line below it the line, the field and the reason.
std::string FaultDetail(const FileFault& fault, Language language);

}  // namespace velmora

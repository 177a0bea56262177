#include "fuzz/Fuzzing.h"

void velmora::Feed(std::string_view bytes) {
  RequireWhole(ReadTable(bytes, {.limit = 1 << 20}));
}

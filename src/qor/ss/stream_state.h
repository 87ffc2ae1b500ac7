// What a task keeps of its streams of values: a record a variable.
#pragma once

#include <cstdint>

#include "qor/ss/stream_summary.h"

namespace orvik::ss {

// A level of a variable's stream. The current one has a work area, the finished ones a summary.
struct StreamLevel {
  LevelShape shape;
  LevelRoom room;  // of the work area
  int64_t count;   // observations fed
  int64_t used;    // entries of the summary
  void* summary;
  void* work;
};

struct StreamVariable {
  int64_t levelCount;
  int64_t currentLevel;
  double epsilon;  // as of the first block; not zero once the variable has data
  StreamLevel* levels;

  int64_t seen() const {
    int64_t total = 0;
    for (int64_t k = 0; k < levelCount; ++k) total += levels[k].count;
    return total;
  }
};
static_assert(sizeof(StreamVariable) == 32);

// Gives back the records of p variables, which may be null, and all that hangs on them.
void release_streams(StreamVariable* state, int64_t p);

}  // namespace orvik::ss

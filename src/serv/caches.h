// What of a long array stays in the caches, by the processor that the library runs on.
#pragma once

#include <stdint.h>

namespace orvik::serv {

// Bytes below which results are read from the caches again, where no more was read than they are. 0 until the load-time
// code of priority 102 has run, and where a cache of many cores is far from each of them.
extern int64_t kept_result_bytes;

}  // namespace orvik::serv

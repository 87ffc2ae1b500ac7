// Looks at the caches at load. This file is compiled for any x86-64 processor; see processor.cc.
#include "serv/caches.h"

#include "orvik/serv.h"
#include "serv/processor.h"

namespace orvik::serv {

int64_t kept_result_bytes = 0;

namespace {

// Zen 4, 32 MiB: a loop over an array and its result takes as long with stores past the caches at 12 MiB of each.
[[gnu::constructor(102)]] void look_at_caches() { kept_result_bytes = near_outer_cache(read_processor()) / 8 * 3; }

}  // namespace

}  // namespace orvik::serv

extern "C" int64_t orvik_serv_kept_result_bytes(void) { return orvik::serv::kept_result_bytes; }

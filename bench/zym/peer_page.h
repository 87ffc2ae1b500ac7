// docs/accuracy-peers.md: worst errors of the special functions, ours and those of other libraries, over the same
// inputs.
#pragma once

#include <string>

namespace orvik::bench {

// Writes the page about the built rows that match. False where it cannot: no references, or no such file.
bool write_peer_page(const std::string& path, const std::string& filter);

}  // namespace orvik::bench

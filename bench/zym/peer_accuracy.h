// The largest errors of the peers, for the bounds in their tables.
#pragma once

#include <string>

namespace orvik::bench {

// Of the rows that match, over values of the functions' domains. Says so where the references are not built.
void print_peer_accuracy(const std::string& filter);

}  // namespace orvik::bench

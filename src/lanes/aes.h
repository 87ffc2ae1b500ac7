// Rounds of AES (FIPS 197) on one block. For sources that are compiled for these instructions.
#pragma once

#include "lanes/words.h"

namespace orvik {

inline I32Half aes_round(I32Half x, I32Half key) { return _mm_aesenc_si128(x.v, key.v); }
inline I32Half aes_last_round(I32Half x, I32Half key) { return _mm_aesenclast_si128(x.v, key.v); }

}  // namespace orvik

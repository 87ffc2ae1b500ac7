#include "df/interpolate/request.h"

namespace orvik::df {

void Orders::count_asked() {
  asked_ = 0;
  for (int64_t k = 0; k < given_; ++k) asked_ += raw(k) == 1;
  none_set_ = asked_ == 0;
  size_ = none_set_ ? 1 : given_;
  if (none_set_) asked_ = 1;
}

Layout Layout::from_hint(int64_t hint, int64_t ny, int64_t nsite, int64_t nder) {
  switch (hint) {
    case 32:
      return {nder * nsite, 1, nsite};
    case 256:
      return {nder, ny * nder, 1};
    case 512:
      return {1, nder * ny, ny};
    default:
      return {nsite * nder, nder, 1};
  }
}

}  // namespace orvik::df

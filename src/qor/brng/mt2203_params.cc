#include "qor/brng/mt2203.h"

namespace orvik::qor {

const Mt2203Set Mt2203Params[kMt2203Members] = {
#include "qor/brng/mt2203_params.inc"
};

}  // namespace orvik::qor

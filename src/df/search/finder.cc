#include "df/search/finder.h"

namespace orvik::df {

template class Finder<double>;
template class Finder<float>;
ORVIK_DF_FINDER_FORMS(, double)
ORVIK_DF_FINDER_FORMS(, float)

}  // namespace orvik::df

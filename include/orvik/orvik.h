/* All of the library's public headers. */
#ifndef ORVIK_ORVIK_H
#define ORVIK_ORVIK_H

#include "orvik/df.h"
#include "orvik/qor.h"
#include "orvik/serv.h"
#include "orvik/ss.h"
#include "orvik/version.h"
#include "orvik/zym.h"

#endif

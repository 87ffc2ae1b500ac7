/* All of the library's public headers. */
#ifndef ORVIK_ORVIK_H
#define ORVIK_ORVIK_H

#include "orvik/serv.h"
#include "orvik/zym.h"

#endif

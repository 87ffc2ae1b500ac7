// The lanes of a kernel: vectors and their arithmetic, memory, tables.
#pragma once

#include "zym/lanes/memory.h"
#include "zym/lanes/tables.h"
#include "zym/lanes/vectors.h"

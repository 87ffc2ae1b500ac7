/* A program that refers to nothing of the library but tables. */
#include "tables.h"

int main(void) { return run_tables(); }

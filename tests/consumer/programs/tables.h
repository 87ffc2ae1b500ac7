/* What a dispatch layer does: kernels through their tables, by weak references and nothing else. */
#ifndef TABLES_H
#define TABLES_H

/* 0 when the kernels of a few rows give what they should. */
int run_tables(void);

#endif

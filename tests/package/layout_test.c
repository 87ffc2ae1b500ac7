/* The layout of public records, which no minor version may change. Compiled, never run. */
#include <orvik/front.h>
#include <orvik/orvik.h>
#include <stddef.h>

#define AT(record, field, offset) _Static_assert(offsetof(record, field) == (offset), #record "." #field)
#define SIZE(record, size) _Static_assert(sizeof(record) == (size), #record)

AT(ZymErrorContext, code, 0);
AT(ZymErrorContext, index, 4);
AT(ZymErrorContext, arg1, 8);
AT(ZymErrorContext, arg2, 16);
AT(ZymErrorContext, result1, 24);
AT(ZymErrorContext, result2, 32);
AT(ZymErrorContext, functionName, 40);
AT(ZymErrorContext, functionNameLength, 104);
AT(ZymErrorContext, arg1Imag, 112);
AT(ZymErrorContext, arg2Imag, 120);
AT(ZymErrorContext, result1Imag, 128);
AT(ZymErrorContext, result2Imag, 136);
SIZE(ZymErrorContext, 144);
SIZE(ZymComplexFloat, 8);
SIZE(ZymComplexDouble, 16);

AT(RegBrngRow, StreamStateSize, 0);
AT(RegBrngRow, NSeeds, 4);
AT(RegBrngRow, IncludesZero, 8);
AT(RegBrngRow, WordSize, 12);
AT(RegBrngRow, NBits, 16);
AT(RegBrngRow, InitStream, 24);
AT(RegBrngRow, sBRng, 32);
AT(RegBrngRow, dBRng, 40);
AT(RegBrngRow, iBRng, 48);
SIZE(RegBrngRow, 56);
AT(OrvikSharedEntry, Key, 0);
AT(OrvikSharedEntry, RefCount, 16);
AT(OrvikSharedEntry, Data, 24);
SIZE(OrvikSharedEntry, 32);
AT(OrvikSharedHolder, Id, 0);
AT(OrvikSharedHolder, Size, 4);
AT(OrvikSharedHolder, Data, 8);

AT(OrvikThreading, max_threads, 0);
AT(OrvikThreading, run, 8);
SIZE(OrvikThreading, 16);
AT(OrvikDFServices, parallel_run, 0);
AT(OrvikDFServices, max_threads, 32);
SIZE(OrvikDFServices, 64);
SIZE(OrvikDFSearchParameters, 16);

AT(orvik_math_options, accuracy, 0);
AT(orvik_math_options, threads, 4);
AT(orvik_math_options, reports, 8);
AT(orvik_math_options, report_capacity, 16);
AT(orvik_math_options, report_count, 24);
SIZE(orvik_math_options, 32);
AT(orvik_report, index, 0);
AT(orvik_report, code, 8);
AT(orvik_report, a, 16);
AT(orvik_report, b, 32);
AT(orvik_report, r, 48);
SIZE(orvik_report, 64);
AT(orvik_spline_ends, kind, 0);
AT(orvik_spline_ends, left, 8);
AT(orvik_spline_ends, right, 16);
SIZE(orvik_spline_ends, 24);

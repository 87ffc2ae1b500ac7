// Element reports: what a kernel calls for an exceptional element, once the element's result stands in the output
// array.
#pragma once

#include <cstdint>

#include "orvik/zym_types.h"

namespace orvik::zym {

// Whether a report of the calling thread reaches no more than its status, errno and a sticky flag: no callback, no text, no
// trap. Of several such reports with one code the last does what all do.
bool reports_unheard();
// Such a report, errno kept aside.
void report_unheard(int32_t code, int& error_number);

// Unit stride: code, index, a, b, r1, r2, name. A kernel with one input passes a twice, with one output r1 twice.
void zymReportFloat(int32_t code, int32_t index, const float* a, const float* b, float* r1, float* r2,
                    const char* name);
void zymReportDouble(int32_t code, int32_t index, const double* a, const double* b, double* r1, double* r2,
                     const char* name);
void zymReportComplexFloat(int32_t code, int32_t index, const ZymComplexFloat* a, const ZymComplexFloat* b,
                           ZymComplexFloat* r1, ZymComplexFloat* r2, const char* name);
void zymReportComplexDouble(int32_t code, int32_t index, const ZymComplexDouble* a, const ZymComplexDouble* b,
                            ZymComplexDouble* r1, ZymComplexDouble* r2, const char* name);

// Strided: every base pointer with its increment; the element lies at base + index * increment.
void zymReportFloatStrided(int32_t code, int32_t index, const float* a, int32_t incA, const float* b, int32_t incB,
                           float* r1, int32_t incR1, float* r2, int32_t incR2, const char* name);
void zymReportDoubleStrided(int32_t code, int32_t index, const double* a, int32_t incA, const double* b, int32_t incB,
                            double* r1, int32_t incR1, double* r2, int32_t incR2, const char* name);
void zymReportComplexFloatStrided(int32_t code, int32_t index, const ZymComplexFloat* a, int32_t incA,
                                  const ZymComplexFloat* b, int32_t incB, ZymComplexFloat* r1, int32_t incR1,
                                  ZymComplexFloat* r2, int32_t incR2, const char* name);
void zymReportComplexDoubleStrided(int32_t code, int32_t index, const ZymComplexDouble* a, int32_t incA,
                                   const ZymComplexDouble* b, int32_t incB, ZymComplexDouble* r1, int32_t incR1,
                                   ZymComplexDouble* r2, int32_t incR2, const char* name);

// The strided reporter of an element type; the unit-stride ones are its instances with increments of 1.
inline constexpr auto* report_strided(const float*) { return &zymReportFloatStrided; }
inline constexpr auto* report_strided(const double*) { return &zymReportDoubleStrided; }
inline constexpr auto* report_strided(const ZymComplexFloat*) { return &zymReportComplexFloatStrided; }
inline constexpr auto* report_strided(const ZymComplexDouble*) { return &zymReportComplexDoubleStrided; }

}  // namespace orvik::zym

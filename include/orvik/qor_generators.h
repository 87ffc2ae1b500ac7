/* Ids and functions of the generators. Written by tools/qor/brngs.py. */
#ifndef ORVIK_QOR_GENERATORS_H
#define ORVIK_QOR_GENERATORS_H

#include <stdint.h>

#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {
#endif

/* A stream: what all generators and distributions draw from. */
typedef void* OrvikStream;

/* Generator ids. WH and MT2203 are families: add the member, 0 to 272 and 0 to 6023. */
typedef enum OrvikQorBrng {
  ORVIK_BRNG_MCG31M1       = 0x100000,
  ORVIK_BRNG_R250          = 0x200000,
  ORVIK_BRNG_MRG32K3A      = 0x300000,
  ORVIK_BRNG_MCG59         = 0x400000,
  ORVIK_BRNG_WH            = 0x500000,
  ORVIK_BRNG_SOBOL         = 0x600000,
  ORVIK_BRNG_NIEDERREITER  = 0x700000,
  ORVIK_BRNG_MT19937       = 0x800000,
  ORVIK_BRNG_MT2203        = 0x900000,
  ORVIK_BRNG_IABSTRACT     = 0xA00000,
  ORVIK_BRNG_DABSTRACT     = 0xB00000,
  ORVIK_BRNG_SABSTRACT     = 0xC00000,
  ORVIK_BRNG_SFMT19937     = 0xD00000,
  ORVIK_BRNG_TRNG          = 0xE00000,
  ORVIK_BRNG_ARS5          = 0xF00000,
  ORVIK_BRNG_PHILOX4X32X10 = 0x1000000
} OrvikQorBrng;

/* The functions of a generator's row: the forms that OrvikQorInitStream and its neighbours describe. */
#define ORVIK_QOR_DECLARE_BRNG(G)                                                                       \
  int32_t __qorBRng##G##InitStream(uint32_t method, OrvikStream stream, int32_t n, const void* params); \
  int32_t __qorsBRng##G(OrvikStream stream, int32_t n, float* r, float a, float b);                     \
  int32_t __qordBRng##G(OrvikStream stream, int32_t n, double* r, double a, double b);                  \
  int32_t __qoriBRng##G(OrvikStream stream, int32_t n, void* r)

ORVIK_QOR_DECLARE_BRNG(MCG31M1);
ORVIK_QOR_DECLARE_BRNG(R250);
ORVIK_QOR_DECLARE_BRNG(MRG32K3A);
ORVIK_QOR_DECLARE_BRNG(MCG59);
ORVIK_QOR_DECLARE_BRNG(WH);
ORVIK_QOR_DECLARE_BRNG(Sobol);
ORVIK_QOR_DECLARE_BRNG(Niederr);
ORVIK_QOR_DECLARE_BRNG(MT19937);
ORVIK_QOR_DECLARE_BRNG(MT2203);
ORVIK_QOR_DECLARE_BRNG(iAbstract);
ORVIK_QOR_DECLARE_BRNG(dAbstract);
ORVIK_QOR_DECLARE_BRNG(sAbstract);
ORVIK_QOR_DECLARE_BRNG(SFMT19937);
ORVIK_QOR_DECLARE_BRNG(TRNG);
ORVIK_QOR_DECLARE_BRNG(ARS5);
ORVIK_QOR_DECLARE_BRNG(PHILOX4X32X10);

#undef ORVIK_QOR_DECLARE_BRNG

#ifdef __cplusplus
}
#endif

#pragma GCC visibility pop

#endif

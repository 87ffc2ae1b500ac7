#include "tables.h"

#include <orvik/zym.h>
#include <stdio.h>

typedef void (*Unary)(int32_t, const float*, float*);
typedef void (*Binary)(int32_t, const double*, const double*, double*);

int run_tables(void) {
  enum { kLevels = 3 };
  const float a[3] = {1.5f, -2.0f, 3.25f};
  const double b[2] = {2.0, 5.0}, c[2] = {-3.0, 0.5};
  int bad = 0;
  if (orvik_zym_kernel_sAbs_ttab == NULL || orvik_zym_kernel_dMul_ttab == NULL) {
    printf("tables: the library is not there\n");
    return 1;
  }
  for (int level = 0; level < kLevels; ++level) {
    float r[3] = {0, 0, 0};
    double s[2] = {0, 0};
    ((Unary)orvik_zym_kernel_sAbs_ttab[level])(3, a, r);
    ((Binary)orvik_zym_kernel_dMul_ttab[level])(2, b, c, s);
    bad += r[0] != 1.5f || r[1] != 2.0f || r[2] != 3.25f;
    bad += s[0] != -6.0 || s[1] != 2.5;
    bad += !(orvik_zym_kernel_sAbs_ctab[level] > 0);
  }
  printf("tables: %d of %d differ\n", bad, 3 * kLevels);
  return bad != 0;
}

/* What a user's C program does with the installed library: working memory, a vector function, an error report. */
#include <math.h>
#include <orvik/orvik.h>
#include <stdio.h>

int main(void) {
  enum { kCount = 1001 };
  double* a = orvik_serv_allocate(kCount * sizeof *a, 128);
  double* r = orvik_serv_allocate(kCount * sizeof *r, 128);
  int bad = 0;
  if (a == NULL || r == NULL) return 1;
  for (int i = 0; i < kCount; ++i) a[i] = i - 500.25;
  _zymdAbs(kCount, a, r);
  for (int i = 0; i < kCount; ++i) bad += r[i] != fabs(a[i]);
  orvik_serv_deallocate(a);
  orvik_serv_deallocate(r);
  printf("C program: %d of %d elements differ\n", bad, kCount);
  return bad != 0;
}

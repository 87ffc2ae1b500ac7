/* What a user's C program does with the installed front; with the kernels beside it, whose version it shares. */
#include <orvik/front.h>
#include <orvik/orvik.h>
#include <stdio.h>
#include <string.h>

int main(void) {
  const double a[] = {0, 1, 4, 9};
  double r[5], u[4];
  orvik_stream* stream = NULL;
  if (orvik_dsqrt(4, a, r, NULL) != ORVIK_SUCCESS || r[3] != 3) return 1;
  if (orvik_dsqrt(4, a, r + 1, NULL) != ORVIK_SUCCESS) return 1;
  if (orvik_stream_new(&stream, ORVIK_PHILOX4X32X10, 7) != ORVIK_SUCCESS) return 1;
  if (orvik_d_uniform(stream, 4, u, 0, 1) != ORVIK_SUCCESS) return 1;
  orvik_stream_delete(stream);
  if (strcmp(orvik_version(), ORVIK_VERSION_STRING) != 0 || !orvik_cpu_supported()) return 1;
  printf("C program over the front: %s\n", orvik_status_text(ORVIK_SUCCESS));
  return 0;
}

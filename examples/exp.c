/* Exponentials of an array, with a report of the elements that leave the range. */
#include <orvik/front.h>
#include <stdio.h>

int main(void) {
  const double a[] = {0, 1, -1, 710, 0.5, -800};
  double r[6];
  orvik_report reports[6];
  orvik_math_options options = {.accuracy = ORVIK_LA, .reports = reports, .report_capacity = 6};
  orvik_status status = orvik_dexp(6, a, r, &options);
  if (status < 0) {
    fprintf(stderr, "%s\n", orvik_status_text(status));
    return 1;
  }
  for (int i = 0; i < 6; ++i) printf("exp(%g) = %g\n", a[i], r[i]);
  for (int i = 0; i < options.report_count; ++i) {
    printf("element %d: %s\n", (int)reports[i].index, orvik_status_text(reports[i].code));
  }
  return 0;
}

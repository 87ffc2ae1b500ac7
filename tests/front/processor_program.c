/* Calls the front whatever the processor: on one that does not serve, every call says so and nothing else happens. Prints the statuses. */
#include <orvik/front.h>
#include <stdio.h>

int main(void) {
  double a[2] = {1, 2}, r[2] = {-7, -7}, order = 0.5;
  int64_t cell = -7;
  orvik_stream* stream = NULL;
  orvik_d_summary* summary = NULL;
  orvik_d_spline* spline = NULL;
  orvik_d_stream_quantiles* quantiles = NULL;
  const orvik_status statuses[] = {orvik_dabs(2, a, r, NULL),
                                   orvik_dabs_strided(2, a, 1, r, 1, NULL),
                                   orvik_stream_new(&stream, ORVIK_PHILOX4X32X10, 1),
                                   orvik_d_summary_new(&summary, 1),
                                   orvik_d_stream_quantiles_new(&quantiles, 1, 0.1),
                                   orvik_d_quantiles(2, 1, a, ORVIK_ROWS, 1, &order, r),
                                   orvik_d_spline_new(&spline, 2, a, 1, a, ORVIK_LINEAR, NULL, NULL),
                                   orvik_d_search(2, a, 1, a, &cell)};
  const int count = sizeof statuses / sizeof *statuses;
  int refused = 0;
  for (int k = 0; k < count; ++k) refused += statuses[k] == ORVIK_ERROR_CPU;
  printf("supported %d, refused %d of %d, results %s\n", orvik_cpu_supported(), refused, count,
         r[0] == -7 && r[1] == -7 && cell == -7 ? "untouched" : "written");
  orvik_stream_delete(stream);
  orvik_d_summary_delete(summary);
  orvik_d_spline_delete(spline);
  orvik_d_stream_quantiles_delete(quantiles);
  return 0;
}

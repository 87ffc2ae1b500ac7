/* Data fitting in one dimension: a task names a partition and functions on it; construction turns them into piecewise
 * polynomials, search locates sites in the partition, interpolation evaluates, integration integrates.
 *
 * Every call returns a 32-bit status: 0 for success, a negative DFS_ value for failure. Entries with `d` work on
 * double, their twins with `s` on float; entries without either letter serve both. The library checks what a line below
 * says it checks and trusts the rest.
 *
 * Notation: nx breakpoints x[0] < x[1] < ... < x[nx-1], ny functions, h[i] = x[i+1] - x[i]. */
#ifndef ORVIK_DF_H
#define ORVIK_DF_H

#include <stdint.h>

/* Exported also where the library itself is built with hidden visibility. */
#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {
#endif

/* One fitting problem. The caller keeps all arrays of reals; the task owns two arrays of pointers and a table. */
typedef void* OrvikDFTask;

/* Statuses. BAD: the argument or field of that name has a value that the call does not take. */
enum {
  DFS_NO_TASK = -1000, /* the task is null */
  DFS_NO_MEMORY = -1001,
  DFS_UNKNOWN_METHOD = -1002,
  DFS_BAD_BREAKPOINT_COUNT = -1004,
  DFS_BAD_BREAKPOINTS = -1005,
  DFS_BAD_PARTITION_HINT = -1006,
  DFS_BAD_FUNCTION_COUNT = -1007,
  DFS_BAD_FUNCTIONS = -1008,
  DFS_BAD_FUNCTION_HINT = -1009,
  DFS_BAD_SPLINE_ORDER = -1010,
  DFS_BAD_SPLINE_TYPE = -1011,
  DFS_BAD_INTERNAL_TYPE = -1012,
  DFS_BAD_INTERNAL_VALUES = -1013,
  DFS_BAD_BOUNDARY_TYPE = -1014,
  DFS_BAD_BOUNDARY_VALUES = -1015,
  DFS_BAD_COEFFICIENTS = -1016,
  DFS_BAD_COEFFICIENT_HINT = -1017,
  DFS_NOT_PERIODIC = -1018, /* periodic ends asked for, first and last value of a function differ */
  DFS_BAD_PARAMETER_ID = -1019,
  DFS_BAD_INDEX = -1020,
  DFS_SITE_NOT_BREAKPOINT = -1022, /* look-up of a site that is no breakpoint */
  DFS_BAD_ORDER_COUNT = -1024,     /* look-up with ndorder other than 1 */
  DFS_BAD_ORDER_FLAG = -1025,      /* look-up with dorder[0] = 0 */
  DFS_BAD_DATA_HINT = -1026,
  DFS_BAD_RESULT_HINT = -1028,
  DFS_BAD_INTEGRAL_HINT = -1034,
  DFS_BAD_VALIDATE_FLAG = -1036,
  DFS_NO_DESTINATION = -1037,
  DFS_SOLVER_FAILED = -1500 /* a tridiagonal routine met a zero pivot */
};

/* What is known of the partition. UNIFORM: only x[0] and x[1] are read, the two ends; the step is
 * (x[1] - x[0]) / (nx - 1). */
enum {
  DF_PARTITION_UNKNOWN = 0,
  DF_PARTITION_NON_UNIFORM = 1,
  DF_PARTITION_QUASI_UNIFORM = 2,
  DF_PARTITION_UNIFORM = 4
};

/* How function values are stored. ROWS: y[f * nx + i]. COLUMNS: y[i * ny + f]. SINGLE_ROW: the pointer is row 0, the
 * other rows are set one by one by ...EditIdxPtr. DEFAULT is ROWS. Coefficient rows take the same four values; only
 * SINGLE_ROW differs there. */
enum { DF_STORAGE_DEFAULT = 0, DF_STORAGE_ROWS = 16, DF_STORAGE_COLUMNS = 32, DF_STORAGE_SINGLE_ROW = 128 };

/* Ids of the edit and query calls. */
enum {
  DFP_BREAKPOINTS = 1,
  DFP_FUNCTIONS = 2,
  DFP_INTERNAL_VALUES = 3,
  DFP_BOUNDARY_VALUES = 4,
  DFP_COEFFICIENTS = 5,
  DFP_BREAKPOINT_COUNT = 14,
  DFP_PARTITION_HINT = 15,
  DFP_FUNCTION_COUNT = 16,
  DFP_FUNCTION_HINT = 17,
  DFP_SPLINE_ORDER = 18,
  DFP_SPLINE_TYPE = 19,
  DFP_INTERNAL_TYPE = 20,
  DFP_BOUNDARY_TYPE = 21,
  DFP_COEFFICIENT_HINT = 22,
  DFP_VALIDATE_FLAG = 23
};

/* Boundary conditions; bc[0] belongs to the left end, bc[1] to the right one. Accepted: NONE (Akima only), NOT_A_KNOT,
 * FREE_END, one FIRST_ or SECOND_ value for each end added up (12, 24, 36, 48), PERIODIC, MIDPOINT_VALUE (quadratic).
 */
enum {
  DFB_NONE = 0,
  DFB_NOT_A_KNOT = 1,
  DFB_FREE_END = 2,
  DFB_FIRST_LEFT = 4,
  DFB_FIRST_RIGHT = 8,
  DFB_SECOND_LEFT = 16,
  DFB_SECOND_RIGHT = 32,
  DFB_PERIODIC = 64,
  DFB_MIDPOINT_VALUE = 128
};

/* An item of work. */
typedef int32_t (*OrvikDFBody)(int64_t index, int64_t thread, int64_t threads, void* arguments);

/* Thread operations that a caller may hand in; a null table means one thread. parallel_run runs
 * body(index, thread, threads, arguments) for index 0 to count - 1, returns when all are done, and gives the first
 * negative status of a body or 0. max_threads tells how many threads may be used. */
typedef struct OrvikDFServices {
  int32_t (*parallel_run)(int64_t count, int64_t threads, void* arguments, OrvikDFBody body); /* a loop over threads */
  void* reserved[3];                                                                          /* not read */
  int64_t (*max_threads)(void);                                                               /* how many may be used */
  void* reserved2[3];                                                                         /* not read */
} OrvikDFServices;

/* ---- Tasks --------------------------------------------------------------------------------------------------------
 */

/* Makes a task: nx >= 2 breakpoints, ny functions (0 with a null y). index_width 0: integers that a query stores, cell
 * arrays and order flags are 32 bits wide; otherwise 64 (order flags: where bit 0 is set). On DFS_NO_MEMORY the
 * half-made task is left in *task for orvik_df_kernel_DeleteTask. */
int32_t orvik_df_kernel_dNewTask1D(OrvikDFTask* task, int64_t nx, const double* x, int64_t xhint, int64_t ny,
                                   const double* y, int64_t yhint, int32_t index_width);
int32_t orvik_df_kernel_sNewTask1D(OrvikDFTask* task, int64_t nx, const float* x, int64_t xhint, int64_t ny,
                                   const float* y, int64_t yhint, int32_t index_width);

/* Frees a task and stores null in *task. */
int32_t orvik_df_kernel_DeleteTask(OrvikDFTask* task);

/* Sets a pointer (ids 1 to 5). DFP_FUNCTIONS and DFP_COEFFICIENTS lay out their rows at this moment, from the counts,
 * order, type and hints that the task has then. */
int32_t orvik_df_kernel_dEditPtr(OrvikDFTask task, int32_t id, const double* pointer);
int32_t orvik_df_kernel_sEditPtr(OrvikDFTask task, int32_t id, const float* pointer);

/* Sets an integer (ids 14 to 23). Setting DFP_PARTITION_HINT to 1 builds the search table again from the current
 * partition; no other edit does. */
int32_t orvik_df_kernel_iEditVal(OrvikDFTask task, int32_t id, int64_t value);

/* Sets row `index` of DFP_FUNCTIONS or DFP_COEFFICIENTS. */
int32_t orvik_df_kernel_dEditIdxPtr(OrvikDFTask task, int32_t id, int64_t index, const double* pointer);
int32_t orvik_df_kernel_sEditIdxPtr(OrvikDFTask task, int32_t id, int64_t index, const float* pointer);

/* Names a whole spline. A null `coefficients` leaves the rows as they are. Not atomic: what was stored before a failing
 * test stays. */
int32_t orvik_df_kernel_dEditPPSpline1D(OrvikDFTask task, int64_t s_order, int64_t s_type, int64_t bc_type,
                                        const double* bc, int64_t ic_type, const double* ic, const double* coefficients,
                                        int64_t coeff_hint);
int32_t orvik_df_kernel_sEditPPSpline1D(OrvikDFTask task, int64_t s_order, int64_t s_type, int64_t bc_type,
                                        const float* bc, int64_t ic_type, const float* ic, const float* coefficients,
                                        int64_t coeff_hint);

/* Reads a pointer (DFP_FUNCTIONS, DFP_COEFFICIENTS: row 0), an integer (32 or 64 bits by index_width), a row pointer
 * (index 0 to ny, one past the rows included: null there). */
int32_t orvik_df_kernel_dQueryPtr(OrvikDFTask task, int32_t id, double** destination);
int32_t orvik_df_kernel_sQueryPtr(OrvikDFTask task, int32_t id, float** destination);
int32_t orvik_df_kernel_iQueryVal(OrvikDFTask task, int32_t id, void* destination);
int32_t orvik_df_kernel_dQueryIdxPtr(OrvikDFTask task, int32_t id, int64_t index, double** destination);
int32_t orvik_df_kernel_sQueryIdxPtr(OrvikDFTask task, int32_t id, int64_t index, float** destination);

/* ---- Construction -------------------------------------------------------------------------------------------------
 */

/* Write the coefficients of every function into the task's coefficient rows: order k has k reals an interval, lowest
 * power first, about the interval's left breakpoint. `unused` is not read; `method` is 0.
 *
 *   Linear         order 2
 *   Quadratic      order 3; type 0 with the value at the middle of interval 0 in bc[0], type 1 with its own knots (nx
 *                  intervals, coefficients about x[i]): ic, when given, has nx + 1 knots from x[0] to x[nx-1]
 *   DefaultCubic   order 4; ic[k] is the second derivative at x[k+1]
 *   NaturalCubic   order 4; second derivative continuous (a tridiagonal system)
 *   HermiteCubic   order 4; ic[k] is the first derivative at x[k+1]
 *   BesselCubic    order 4; derivative of the parabola through three points
 *   AkimaCubic     order 4; Akima 1970
 *   HymanCubic     order 4; Bessel's derivative cut so that monotone data stay monotone (Hyman 1983)
 *
 * DFS_NOT_PERIODIC, DFS_NO_MEMORY and all argument errors write nothing. */
int32_t orvik_df_kernel_dDFLinearSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                          const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFLinearSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                          const OrvikDFServices* services);
int32_t orvik_df_kernel_dDFQuadraticSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                             const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFQuadraticSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                             const OrvikDFServices* services);
int32_t orvik_df_kernel_dDFDefaultCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                                const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFDefaultCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                                const OrvikDFServices* services);
int32_t orvik_df_kernel_dDFNaturalCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                                const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFNaturalCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                                const OrvikDFServices* services);
int32_t orvik_df_kernel_dDFHermiteCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                                const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFHermiteCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                                const OrvikDFServices* services);
int32_t orvik_df_kernel_dDFBesselCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                               const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFBesselCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                               const OrvikDFServices* services);
int32_t orvik_df_kernel_dDFAkimaCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                              const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFAkimaCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                              const OrvikDFServices* services);
int32_t orvik_df_kernel_dDFHymanCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                              const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFHymanCubicSpline1D(OrvikDFTask task, int64_t unused, int64_t method,
                                              const OrvikDFServices* services);

/* ---- Search -------------------------------------------------------------------------------------------------------
 */

/* Cells: 0 for t < x[0]; i for x[i-1] <= t < x[i]; nx for t > x[nx-1]; nx - 1 for t = x[nx-1].
 *
 * A search callback gets *count sites, writes a cell and a flag for each, and returns 1000 (all cells final), any other
 * value that is not negative (cells with flag 0 are guesses to be refined), or a negative status that ends the search.
 */
typedef int32_t (*OrvikDFSearchCallbackD)(int64_t* count, const double* sites, int64_t* cells, int32_t* flags,
                                          void* word0, void* word1);
typedef int32_t (*OrvikDFSearchCallbackS)(int64_t* count, const float* sites, int64_t* cells, int32_t* flags,
                                          void* word0, void* word1);

/* What a callback gets as its last two arguments; a null pointer to it means two nulls. */
typedef struct OrvikDFSearchParameters {
  void* words[2]; /* word0 and word1 of the callback */
} OrvikDFSearchParameters;

/* Finds the cells of nsite sites. sitehint 4: site[0] and site[1] are the ends of an even grid; 64: sites ascend.
 * datahint (null, or reals): element 1 equal to 1 says that sites cluster around breakpoint number element 4. `cell`
 * has 32-bit elements when the task's index_width is 0, else 64-bit ones. More than 4096 sites of an even grid take a
 * buffer that is not given back. */
int32_t orvik_df_kernel_dDFSearch1D(OrvikDFTask task, int64_t unused, int64_t nsite, const double* site,
                                    int64_t sitehint, const double* datahint, void* cell,
                                    OrvikDFSearchCallbackD search_cb, const OrvikDFSearchParameters* search_params,
                                    const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFSearch1D(OrvikDFTask task, int64_t unused, int64_t nsite, const float* site,
                                    int64_t sitehint, const float* datahint, void* cell,
                                    OrvikDFSearchCallbackS search_cb, const OrvikDFSearchParameters* search_params,
                                    const OrvikDFServices* services);

#define ORVIK_DF_SEARCH_ARGUMENTS(real)                                                                       \
  int64_t nx, const real *x, int64_t nsite, const real *site, int64_t *sorted_state, real value, void *word0, \
      void *word1, const int64_t *bucket_table, void *cell
#define ORVIK_DF_CALLBACK_ARGUMENTS(letter) \
  OrvikDFSearchCallback##letter search_cb, void *param0, void *param1, int32_t *done_flags
#define ORVIK_DF_SEARCH_METHOD(stem)                                                                   \
  int32_t orvik_df_kernel_dDF##stem##Search1D32(ORVIK_DF_SEARCH_ARGUMENTS(double));                    \
  int32_t orvik_df_kernel_dDF##stem##Search1D64(ORVIK_DF_SEARCH_ARGUMENTS(double));                    \
  int32_t orvik_df_kernel_dDF##stem##Search1D64Pack(ORVIK_DF_SEARCH_ARGUMENTS(double));                \
  int32_t orvik_df_kernel_dDF##stem##Search1D(ORVIK_DF_SEARCH_ARGUMENTS(double), int64_t width_flags); \
  int32_t orvik_df_kernel_sDF##stem##Search1D32(ORVIK_DF_SEARCH_ARGUMENTS(float));                     \
  int32_t orvik_df_kernel_sDF##stem##Search1D64(ORVIK_DF_SEARCH_ARGUMENTS(float));                     \
  int32_t orvik_df_kernel_sDF##stem##Search1D64Pack(ORVIK_DF_SEARCH_ARGUMENTS(float));                 \
  int32_t orvik_df_kernel_sDF##stem##Search1D(ORVIK_DF_SEARCH_ARGUMENTS(float), int64_t width_flags);
#define ORVIK_DF_CALLBACK_METHOD(stem)                                                                                 \
  int32_t orvik_df_kernel_dDF##stem##Search1D32(ORVIK_DF_SEARCH_ARGUMENTS(double), ORVIK_DF_CALLBACK_ARGUMENTS(D));    \
  int32_t orvik_df_kernel_dDF##stem##Search1D64(ORVIK_DF_SEARCH_ARGUMENTS(double), ORVIK_DF_CALLBACK_ARGUMENTS(D));    \
  int32_t orvik_df_kernel_dDF##stem##Search1D64Pack(ORVIK_DF_SEARCH_ARGUMENTS(double),                                 \
                                                    ORVIK_DF_CALLBACK_ARGUMENTS(D));                                   \
  int32_t orvik_df_kernel_dDF##stem##Search1D(ORVIK_DF_SEARCH_ARGUMENTS(double), int64_t width_flags,                  \
                                              ORVIK_DF_CALLBACK_ARGUMENTS(D));                                         \
  int32_t orvik_df_kernel_sDF##stem##Search1D32(ORVIK_DF_SEARCH_ARGUMENTS(float), ORVIK_DF_CALLBACK_ARGUMENTS(S));     \
  int32_t orvik_df_kernel_sDF##stem##Search1D64(ORVIK_DF_SEARCH_ARGUMENTS(float), ORVIK_DF_CALLBACK_ARGUMENTS(S));     \
  int32_t orvik_df_kernel_sDF##stem##Search1D64Pack(ORVIK_DF_SEARCH_ARGUMENTS(float), ORVIK_DF_CALLBACK_ARGUMENTS(S)); \
  int32_t orvik_df_kernel_sDF##stem##Search1D(ORVIK_DF_SEARCH_ARGUMENTS(float), int64_t width_flags,                   \
                                              ORVIK_DF_CALLBACK_ARGUMENTS(S));

/* The methods one by one. Suffix 32: 32-bit cells. 64: 64-bit cells and 64-bit index arithmetic. 64Pack: 64-bit cells,
 * 32-bit arithmetic (nx < 2147483647). No suffix: a last integer, 32-bit cells when (width_flags & 3) == 2, else
 * 64-bit.
 *
 *   Uniform       value = (nx - 1) / (x[1] - x[0]); reads x[0] and x[1] only
 *   QuasiUniform  value = (nx - 1) / (x[nx-1] - x[0])
 *   Sorted        *sorted_state is the cell to start from and receives the last one
 *   Peak          value = number of the breakpoint to start from
 *   Hybrid        value = buckets / (x[nx-1] - x[0]), bucket_table as a task builds it (null: plain bisection)
 *   UserDef, UniUserDef  cells of search_cb, refined on a non-uniform or uniform partition */
ORVIK_DF_SEARCH_METHOD(Uniform)
ORVIK_DF_SEARCH_METHOD(QuasiUniform)
ORVIK_DF_SEARCH_METHOD(Sorted)
ORVIK_DF_SEARCH_METHOD(Peak)
ORVIK_DF_SEARCH_METHOD(Hybrid)
ORVIK_DF_CALLBACK_METHOD(UserDef)
ORVIK_DF_CALLBACK_METHOD(UniUserDef)

#undef ORVIK_DF_SEARCH_ARGUMENTS
#undef ORVIK_DF_CALLBACK_ARGUMENTS
#undef ORVIK_DF_SEARCH_METHOD
#undef ORVIK_DF_CALLBACK_METHOD

/* ---- Interpolation ------------------------------------------------------------------------------------------------
 */

/* Values in place of the library's own: of *count sites with their cells, for one function and one derivative. A
 * negative status ends the call. Called from worker threads. */
typedef int32_t (*OrvikDFInterpolateCallbackD)(int64_t* count, const double* sites, const int64_t* cells,
                                               double* results, void* params);
typedef int32_t (*OrvikDFInterpolateCallbackS)(int64_t* count, const float* sites, const int64_t* cells, float* results,
                                               void* params);

/* Evaluates the task's splines and their derivatives.
 *
 * flags: 1 compute, 2 write cells too, exactly 4 compute from the cells given. dorder: ndorder flags (32-bit, or 64-bit
 * when bit 0 of index_width is set); flag k asks for the derivative of order k; none set: the values. rhint, the order
 * of r's ny * nsite * nder reals, outermost first: 0, 16, 128 function, site, derivative; 32 function, derivative,
 * site; 256 site, function, derivative; 512 site, derivative, function.
 *
 * Sites outside the partition take the first or the last polynomial, or le_cb and re_cb where given; i_cb replaces the
 * polynomials inside. Further kinds by order and type: 0 and 6 look-up of breakpoints, 0 and 7, 0 and 8 step functions,
 * order 5 and more a general polynomial. */
int32_t orvik_df_kernel_dDFInterpolate1D(OrvikDFTask task, int64_t flags, int64_t method, int64_t nsite,
                                         const double* site, int64_t sitehint, int64_t ndorder, const void* dorder,
                                         const double* datahint, double* r, int64_t rhint, void* cell,
                                         OrvikDFInterpolateCallbackD le_cb, void* le_params,
                                         OrvikDFInterpolateCallbackD re_cb, void* re_params,
                                         OrvikDFInterpolateCallbackD i_cb, void* i_params,
                                         OrvikDFSearchCallbackD search_cb, const OrvikDFSearchParameters* search_params,
                                         const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFInterpolate1D(OrvikDFTask task, int64_t flags, int64_t method, int64_t nsite,
                                         const float* site, int64_t sitehint, int64_t ndorder, const void* dorder,
                                         const float* datahint, float* r, int64_t rhint, void* cell,
                                         OrvikDFInterpolateCallbackS le_cb, void* le_params,
                                         OrvikDFInterpolateCallbackS re_cb, void* re_params,
                                         OrvikDFInterpolateCallbackS i_cb, void* i_params,
                                         OrvikDFSearchCallbackS search_cb, const OrvikDFSearchParameters* search_params,
                                         const OrvikDFServices* services);

/* ---- Integration --------------------------------------------------------------------------------------------------
 */

/* Integrals in place of the library's own, for one function: of *count stretches left[j] < right[j], each wholly
 * before, behind or inside the partition. cells[j]: 0, nx, or the cell that the stretch begins in. A negative status
 * ends the call; what was written until then stays. Called from worker threads. */
typedef int32_t (*OrvikDFIntegrateCallbackD)(int64_t* count, const double* left, const double* right,
                                             const int64_t* cells, double* results, void* params);
typedef int32_t (*OrvikDFIntegrateCallbackS)(int64_t* count, const float* left, const float* right,
                                             const int64_t* cells, float* results, void* params);

/* Integrates the task's splines, all kinds that interpolation evaluates but the look-up, between nlim pairs of limits
 * llim[k], rlim[k]. Limits may lie outside the partition, where the first and the last polynomial go on (of step
 * functions: the first and the last value); a left limit above the right one changes the sign; equal limits give 0, and
 * a limit that is not a number gives one.
 *
 * llimhint, rlimhint: 4 an even grid given by its two ends, 64 ascending; the data hints are those of search, one for
 * each side. rhint: 16 and 128 r[f * nlim + k], 0 and 32 r[k * ny + f]. le_cb, re_cb and i_cb give the parts before,
 * behind and inside the partition. search_cb is called for at most 128 left limits, then for their right ones; on an
 * even partition cells are computed and it is not called.
 *
 * Tested, in this order: the task, order and type, the left and the right data hint, rhint (DFS_BAD_INTEGRAL_HINT), the
 * rows that the kind reads (DFS_BAD_FUNCTIONS, DFS_BAD_COEFFICIENTS). Memory is taken for the sums of whole pieces when
 * there are eight limits and more; without it (DFS_NO_MEMORY) nothing is written. */
int32_t orvik_df_kernel_dDFIntegrate1D(OrvikDFTask task, int64_t unused, int64_t nlim, const double* llim,
                                       int64_t llimhint, const double* rlim, int64_t rlimhint, const double* ldatahint,
                                       const double* rdatahint, double* r, int64_t rhint,
                                       OrvikDFIntegrateCallbackD le_cb, void* le_params,
                                       OrvikDFIntegrateCallbackD re_cb, void* re_params, OrvikDFIntegrateCallbackD i_cb,
                                       void* i_params, OrvikDFSearchCallbackD search_cb,
                                       const OrvikDFSearchParameters* search_params, const OrvikDFServices* services);
int32_t orvik_df_kernel_sDFIntegrate1D(OrvikDFTask task, int64_t unused, int64_t nlim, const float* llim,
                                       int64_t llimhint, const float* rlim, int64_t rlimhint, const float* ldatahint,
                                       const float* rdatahint, float* r, int64_t rhint, OrvikDFIntegrateCallbackS le_cb,
                                       void* le_params, OrvikDFIntegrateCallbackS re_cb, void* re_params,
                                       OrvikDFIntegrateCallbackS i_cb, void* i_params, OrvikDFSearchCallbackS search_cb,
                                       const OrvikDFSearchParameters* search_params, const OrvikDFServices* services);

#ifdef __cplusplus
}
#endif

#pragma GCC visibility pop

#endif

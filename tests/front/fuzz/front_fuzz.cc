// The whole C front with arguments made from any bytes: it must neither crash, nor read or write outside of what it is
// given, nor leak; a negative status leaves results as they were. Lengths are cut to the memory there is; all else may
// be anything.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <vector>

#include "front/math_calls.h"
#include "orvik/front.h"

namespace {

using orvik::front::test::Functions;
using orvik::front::test::functions;
using orvik::front::test::MathCall;

void require(bool condition) {
  if (!condition) std::abort();
}

// Arguments, byte after byte; zeros behind the last.
class Bytes {
 public:
  Bytes(const uint8_t* data, size_t size) : data_(data), size_(size) {}
  bool more() const { return size_ > 0; }
  template <class T>
  T take() {
    T value{};
    const size_t n = sizeof(T) < size_ ? sizeof(T) : size_;
    std::memcpy(&value, data_, n);
    data_ += n, size_ -= n;
    return value;
  }
  // Often small, sometimes anything.
  int64_t integer() {
    const auto kind = take<uint8_t>();
    if (kind < 200) return kind % 40 - 4;
    return kind < 230 ? take<int16_t>() : take<int64_t>();
  }
  double number() {
    const auto kind = take<uint8_t>();
    constexpr double kSome[] = {0, 1, -1, 0.5, 2, 1e300, -1e300, 1e-300, INFINITY, -INFINITY, NAN, 10, 100, 0.1};
    if (kind < 240) return kSome[kind % std::size(kSome)];
    return take<double>();
  }
  int64_t length() { return integer(); }

 private:
  const uint8_t* data_;
  size_t size_;
};

constexpr int64_t kRoom = 64;  // elements of an array

// Arrays on the heap, so that the address sanitizer sees their ends.
struct Arrays {
  std::unique_ptr<double[]> a{new double[4 * kRoom]}, b{new double[4 * kRoom]}, r{new double[4 * kRoom]},
      q{new double[4 * kRoom]};
  explicit Arrays(Bytes& in) {
    for (int64_t k = 0; k < 4 * kRoom; ++k)
      a[k] = in.more() ? in.number() : double(k), b[k] = double(k % 7) / 7, r[k] = q[k] = -7;
  }
};
bool untouched(const double* r) {
  for (int64_t k = 0; k < 4 * kRoom; ++k) {
    if (r[k] != -7) return false;
  }
  return true;
}

// A length that the arrays hold, or one that must be refused before they are looked at.
int64_t fit(int64_t n, int64_t most) { return n > most && n < (int64_t{1} << 48) ? n % most : n; }

void math(Bytes& in) {
  const auto& all = functions();
  const Functions& f = all[in.take<uint16_t>() % all.size()];
  const auto& row = *orvik::rows::find(f.row);
  Arrays arrays(in);
  const bool strided = in.take<uint8_t>() % 2 == 0;
  MathCall c;
  c.n = fit(in.length(), 16);
  int64_t first = 0;
  if (strided) {
    for (int64_t* inc : {&c.inc_a, &c.inc_b, &c.inc_r1, &c.inc_r2}) {
      const int64_t step = in.integer();
      *inc = step > 4 || step < -4 ? (c.n <= 1 ? step : step % 5) : step;
    }
    first = 2 * kRoom;
  }
  const auto place = [&](std::unique_ptr<double[]>& x) -> double* {
    return in.take<uint8_t>() % 16 == 0 ? nullptr : x.get() + first;
  };
  c.a = place(arrays.a), c.b = place(arrays.b), c.r1 = place(arrays.r), c.r2 = place(arrays.q);
  if (in.take<uint8_t>() % 8 == 0) c.r1 = const_cast<void*>(c.a);
  if (in.take<uint8_t>() % 16 == 0) c.r2 = c.r1;
  c.order = static_cast<int32_t>(in.integer() % 1000);  // recurrences run over all orders
  for (double& s : c.scalars) s = in.number();
  orvik_report reports[20];
  orvik_math_options o = {static_cast<int32_t>(in.integer() % 5), static_cast<int32_t>(in.integer() % 9),
                          in.take<uint8_t>() % 3 == 0 ? nullptr : reports, fit(in.integer(), 20), 0};
  if (o.report_capacity > 20) o.report_capacity = 20;
  const bool apart = c.r1 != c.a;
  const orvik_status status = call(row, f, strided, c, in.take<uint8_t>() % 4 == 0 ? nullptr : &o);
  require(orvik_status_text(status) != nullptr);
  if (status < 0 && apart) require(untouched(arrays.r.get()) && untouched(arrays.q.get()));
}

void draws(Bytes& in) {
  orvik_stream *s = nullptr, *t = nullptr;
  constexpr int32_t kGenerators[] = {ORVIK_MCG31M1, ORVIK_R250,      ORVIK_MRG32K3A, ORVIK_MCG59,
                                     ORVIK_WH,      ORVIK_SOBOL,     ORVIK_MT19937,  ORVIK_NIEDERREITER,
                                     ORVIK_MT2203,  ORVIK_SFMT19937, ORVIK_ARS5,     ORVIK_PHILOX4X32X10,
                                     ORVIK_TRNG};
  const auto which = in.take<uint8_t>();
  const int32_t generator =
      which < 250 ? kGenerators[which % std::size(kGenerators)] + (which > 200 ? which - 200 : 0) : in.take<int32_t>();
  if (in.take<uint8_t>() % 2 == 0) {
    orvik_stream_new(&s, generator, in.take<uint8_t>() % 2 == 0 ? in.take<uint64_t>() : in.take<uint8_t>());
  } else {
    uint32_t seeds[8];
    for (uint32_t& seed : seeds) seed = in.take<uint32_t>();
    orvik_stream_new_seeds(&s, generator, static_cast<int32_t>(fit(in.integer(), 8)) % 9, seeds);
  }
  Arrays arrays(in);
  double* const r = arrays.r.get();
  auto* const f = reinterpret_cast<float*>(r);
  auto* const i = reinterpret_cast<int32_t*>(r);
  while (in.more()) {
    const int64_t n = fit(in.length(), kRoom);
    const double a = in.number(), b = in.number(), c = in.number(), d = in.number();
    const auto fa = static_cast<float>(a), fb = static_cast<float>(b);
    const auto threads = static_cast<int32_t>(in.integer() % 5);
    const auto k = static_cast<int32_t>(in.integer()), l = static_cast<int32_t>(in.integer()),
               m = static_cast<int32_t>(in.integer());
    const auto method = static_cast<uint32_t>(in.take<uint8_t>() % 4);
    orvik_stream* const u = in.take<uint8_t>() % 32 == 0 ? nullptr : s;
    switch (in.take<uint8_t>() % 30) {
      case 0:
        orvik_d_uniform_threads(u, n, r, a, b, threads);
        break;
      case 1:
        orvik_s_uniform(u, n, f, fa, fb);
        break;
      case 2:
        orvik_d_normal_threads(u, n, r, a, b, threads);
        break;
      case 3:
        orvik_d_gaussian_threads(u, n, r, a, b, method, threads);
        break;
      case 4:
        orvik_s_gaussian(u, n, f, fa, fb, method);
        break;
      case 5:
        orvik_d_cauchy(u, n, r, a, b);
        break;
      case 6:
        orvik_s_exponential_threads(u, n, f, fa, fb, threads);
        break;
      case 7:
        orvik_d_gumbel(u, n, r, a, b);
        break;
      case 8:
        orvik_d_laplace_threads(u, n, r, a, b, threads);
        break;
      case 9:
        orvik_d_rayleigh(u, n, r, a, b);
        break;
      case 10:
        orvik_d_weibull(u, n, r, a, b, c);
        break;
      case 11:
        orvik_d_lognormal_threads(u, n, r, a, b, c, d, method, threads);
        break;
      case 12:
        if (a > 1e-3 && a < 1e6) orvik_d_gamma(u, n, r, a, b, c);
        break;
      case 13:
        if (a > 1e-3 && a < 1e6 && b > 1e-3 && b < 1e6) orvik_d_beta(u, n, r, a, b, c, d);
        break;
      case 14:
        orvik_d_chisquare(u, n, r, k);
        break;
      case 15:
        orvik_d_multivariate_normal(u, fit(n, 16), r, k % 5, l % 4, arrays.a.get(), arrays.b.get(), method);
        break;
      case 16:
        orvik_i_words_threads(u, n, reinterpret_cast<uint32_t*>(i), threads);
        break;
      case 17:
        orvik_i_uniform_threads(u, n, i, k, l, threads);
        break;
      case 18:
        orvik_i_bernoulli(u, n, i, a);
        break;
      case 19:
        orvik_i_geometric_threads(u, n, i, a, threads);
        break;
      case 20:
        orvik_i_binomial(u, n, i, k, a);
        break;
      case 21:
        orvik_i_hypergeometric(u, n, i, k, l, m);
        break;
      case 22:
        orvik_stream_skip(u, in.take<uint64_t>());
        break;
      case 23:
        orvik_stream_leapfrog(u, k, l);
        break;
      case 24: {
        int64_t size = 0;
        if (orvik_stream_save(u, nullptr, &size) != ORVIK_SUCCESS) break;
        std::vector<char> image(static_cast<size_t>(size));
        require(orvik_stream_save(u, image.data(), &size) == ORVIK_SUCCESS);
        if (in.take<uint8_t>() % 2 == 0)
          image[in.take<uint16_t>() % image.size()] ^= static_cast<char>(1 + in.take<uint8_t>() % 255);
        orvik_stream_delete(t);
        require((orvik_stream_load(&t, image.data(), size) >= 0) == (t != nullptr));
        break;
      }
      case 25:
        orvik_stream_delete(t);
        orvik_stream_copy(&t, u);
        std::swap(s, t);
        break;
      case 26:
        // Rejection takes the more candidates the smaller both are.
        if (a > 1e-3 || b > 1e-3) orvik_i_negbinomial(u, n, i, a, b);
        break;
      case 27:
        orvik_i_poisson(u, n, i, a, method);
        break;
      case 28:
        orvik_i_poissonv(u, n, i, in.take<uint8_t>() % 2 == 0 ? arrays.a.get() : arrays.b.get());
        break;
      case 29:
        for (int64_t j = 0; j < 4; ++j) arrays.q[j] = (j + 1) * 0.1;
        orvik_i_multinomial(u, fit(n, 16), i, k, in.take<uint8_t>() % 2 == 0 ? 4 : l % 5,
                            in.take<uint8_t>() % 4 == 0 ? arrays.a.get() : arrays.q.get(), method);
        break;
    }
  }
  orvik_stream_delete(s);
  orvik_stream_delete(t);
}

void statistics(Bytes& in) {
  Arrays arrays(in);
  const double* const x = arrays.a.get();
  double* const r = arrays.r.get();
  const int64_t p = fit(in.integer(), 6), wanted = in.length();
  const int64_t n = fit(wanted, p > 0 && p < 7 ? kRoom * 4 / p : kRoom);
  const auto layout = static_cast<int32_t>(in.integer() % 3);
  const double* const weights =
      in.take<uint8_t>() % 2 == 0 ? nullptr : (in.take<uint8_t>() % 2 == 0 ? arrays.a.get() : arrays.b.get());
  orvik_d_quantiles(n, p, x, layout, fit(in.integer(), 20), in.take<uint8_t>() % 2 == 0 ? arrays.b.get() : x, r);
  if (n <= kRoom && p < 4) orvik_d_sort(n, p, x, layout, in.take<uint8_t>() % 2 == 0 ? r : arrays.a.get());
  orvik_d_mad(n, p, x, layout, r);
  orvik_d_weighted_median(n, p, x, layout, weights, r);
  if (n <= kRoom && p < 4) {
    auto* const flags = reinterpret_cast<int8_t*>(arrays.q.get());
    orvik_d_outliers(n, p, x, layout, in.number(), flags);
    orvik_d_robust_covariance(n, p, x, layout, r, in.take<uint8_t>() % 8 == 0 ? r : r + 8);
    const int64_t sets = fit(in.integer(), 4) % 5;
    if (n <= 21) orvik_d_impute(n, p, x, layout, sets, in.take<uint8_t>() % 4 == 0 ? arrays.a.get() : r);
  }
  orvik_d_summary *s = nullptr, *t = nullptr;
  orvik_d_summary_new(&s, p);
  orvik_d_summary_update(s, n, x, layout, weights);
  orvik_d_summary_update(s, n > 2 ? 2 : n, x, layout, nullptr);
  int64_t size = 0;
  if (orvik_d_summary_save(s, nullptr, &size) == ORVIK_SUCCESS) {
    std::vector<char> image(static_cast<size_t>(size));
    require(orvik_d_summary_save(s, image.data(), &size) == ORVIK_SUCCESS);
    if (in.take<uint8_t>() % 2 == 0) image[in.take<uint16_t>() % image.size()] ^= 4;
    orvik_d_summary_load(&t, image.data(), size);
    orvik_d_summary_merge(s, in.take<uint8_t>() % 2 == 0 ? t : s);
    for (auto result :
         {orvik_d_summary_mean, orvik_d_summary_variance, orvik_d_summary_skewness, orvik_d_summary_kurtosis,
          orvik_d_summary_min, orvik_d_summary_max, orvik_d_summary_covariance, orvik_d_summary_correlation}) {
      result(s, r);
    }
  }
  orvik_d_summary_delete(s);
  orvik_d_summary_delete(t);
  orvik_d_stream_quantiles* q = nullptr;
  const double epsilon = in.number();
  orvik_d_stream_quantiles_new(&q, p, epsilon > 0 && epsilon < 1e-3 ? 1e-3 : epsilon);
  orvik_d_stream_quantiles_update(q, n, x, layout);
  orvik_d_stream_quantiles_query(q, fit(in.integer(), 20), arrays.b.get(), r);
  if (orvik_d_stream_quantiles_save(q, nullptr, &size) == ORVIK_SUCCESS) {
    std::vector<char> image(static_cast<size_t>(size));
    require(orvik_d_stream_quantiles_save(q, image.data(), &size) == ORVIK_SUCCESS);
    if (in.take<uint8_t>() % 2 == 0) image[in.take<uint16_t>() % image.size()] ^= 4;
    orvik_d_stream_quantiles* loaded = nullptr;
    orvik_d_stream_quantiles_load(&loaded, image.data(), size);
    orvik_d_stream_quantiles_query(loaded, 1, arrays.b.get(), r);
    orvik_d_stream_quantiles_delete(loaded);
  }
  orvik_d_stream_quantiles_delete(q);
}

void fitting(Bytes& in) {
  Arrays arrays(in);
  double* const r = arrays.r.get();
  if (in.take<uint8_t>() % 4 != 0) {
    for (int64_t k = 0; k < 4 * kRoom; ++k) arrays.b[k] = double(k) * 0.25;
  }
  const int64_t nx = fit(in.integer(), kRoom), ny = fit(in.integer(), 4);
  const orvik_spline_ends ends = {static_cast<int32_t>(in.integer() % 6), in.number(), in.number()};
  const auto kind = static_cast<int32_t>(in.integer() % 9);
  orvik_d_spline* s = nullptr;
  const double* const internal = in.take<uint8_t>() % 2 == 0 ? nullptr : arrays.b.get();
  if (in.take<uint8_t>() % 2 == 0) {
    orvik_d_spline_new(&s, nx, arrays.b.get(), ny, arrays.a.get(), kind, in.take<uint8_t>() % 2 == 0 ? &ends : nullptr,
                       internal);
  } else {
    orvik_d_spline_new_uniform(&s, in.number(), in.number(), nx, ny, arrays.a.get(), kind, &ends, internal);
  }
  const int64_t n = fit(in.length(), kRoom);
  const auto derivative = static_cast<int32_t>(in.integer());
  if (ny < 5) {
    orvik_d_spline_evaluate(s, n, arrays.a.get(), r, derivative);
    orvik_d_spline_integrate(s, n, arrays.a.get(), arrays.b.get(), r);
  }
  int64_t count = in.integer();
  if (count > 4 * kRoom) count %= 4 * kRoom;
  orvik_d_spline_coefficients(s, r, &count);
  orvik_d_spline_delete(s);
  static_assert(sizeof(int64_t) == sizeof(double));
  orvik_d_search(nx, arrays.b.get(), n, arrays.a.get(), reinterpret_cast<int64_t*>(r));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Bytes in(data, size);
  switch (in.take<uint8_t>() % 4) {
    case 0:
      math(in);
      break;
    case 1:
      draws(in);
      break;
    case 2:
      statistics(in);
      break;
    default:
      fitting(in);
      break;
  }
  return 0;
}

// The front in C++20, header-only over orvik/front.h: spans, std::complex, objects that clean up, exceptions.
//
// What goes wrong throws orvik::Error, a std::runtime_error with the status; nothing was computed then. Positive
// statuses of vector functions (exceptional elements) are returned. Arrays are anything that converts to a span:
// vectors, arrays, spans.
#ifndef ORVIK_FRONT_HPP
#define ORVIK_FRONT_HPP

#if __cplusplus <= 201703L
#error "orvik/front.hpp is C++20: compile with -std=c++20 or later"
#endif

#include <complex>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include "orvik/front.h"

namespace orvik {

// Elements.
template <class T>
concept Real = std::same_as<T, float> || std::same_as<T, double>;
template <class T>
concept Number = Real<T> || std::same_as<T, std::complex<float>> || std::same_as<T, std::complex<double>>;

// What goes wrong, with its status and the sentence for it.
class Error : public std::runtime_error {
 public:
  // Of any status below 0.
  explicit Error(std::int32_t status) : std::runtime_error(orvik_status_text(status)), status_(status) {}
  // The status.
  std::int32_t status() const noexcept { return status_; }

 private:
  std::int32_t status_;
};

// Levels, reports and options of vector functions.
enum class Accuracy : std::int32_t { HA = ORVIK_HA, LA = ORVIK_LA, EP = ORVIK_EP };
using Report = orvik_report;
struct MathOptions {
  Accuracy accuracy = Accuracy::HA;        // the level
  int threads = 0;                         // 0: as many as pay
  std::vector<Report>* reports = nullptr;  // receives all exceptional elements
};

namespace detail {

inline std::int32_t check(std::int32_t status) {
  if (status < 0) throw Error(status);
  return status;
}
inline std::int64_t length(std::size_t n) { return static_cast<std::int64_t>(n); }
template <class... Size>
std::int64_t same_size(std::size_t n, Size... others) {
  if (((others != n) || ...)) throw Error(ORVIK_ERROR_BAD_LENGTH);
  return length(n);
}

// Complex elements are pairs of reals in either language.
inline const float* raw(std::span<const float> s) { return s.data(); }
inline const double* raw(std::span<const double> s) { return s.data(); }
inline float* raw(std::span<float> s) { return s.data(); }
inline double* raw(std::span<double> s) { return s.data(); }
inline const ZymComplexFloat* raw(std::span<const std::complex<float>> s) {
  return reinterpret_cast<const ZymComplexFloat*>(s.data());
}
inline const ZymComplexDouble* raw(std::span<const std::complex<double>> s) {
  return reinterpret_cast<const ZymComplexDouble*>(s.data());
}
inline ZymComplexFloat* raw(std::span<std::complex<float>> s) { return reinterpret_cast<ZymComplexFloat*>(s.data()); }
inline ZymComplexDouble* raw(std::span<std::complex<double>> s) {
  return reinterpret_cast<ZymComplexDouble*>(s.data());
}

// Room for the reports of all elements, since a call cannot be made again: its arguments may have become results. What is
// not written takes no memory.
class Reports {
 public:
  explicit Reports(std::int64_t n) : all_(new Report[static_cast<std::size_t>(n)]) {}
  ~Reports() { delete[] all_; }
  Reports(const Reports&) = delete;
  Reports& operator=(const Reports&) = delete;
  Report* get() const noexcept { return all_; }

 private:
  Report* all_;
};
template <class Function, class... Argument>
std::int32_t math(const MathOptions& options, Function function, std::int64_t n, Argument... arguments) {
  orvik_math_options o = {static_cast<std::int32_t>(options.accuracy), options.threads, nullptr, 0, 0};
  if (options.reports == nullptr) return check(function(n, arguments..., &o));
  const Reports found(n);
  o.reports = found.get();
  o.report_capacity = n;
  const std::int32_t status = check(function(n, arguments..., &o));
  options.reports->assign(found.get(), found.get() + o.report_count);
  return status;
}

// An object of the C front with the function that deletes it.
template <class T, void (*Delete)(T*)>
class Owned {
 public:
  Owned() = default;
  explicit Owned(T* object) : object_(object) {}
  ~Owned() { Delete(object_); }
  Owned(Owned&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Owned& operator=(Owned&& other) noexcept {
    Owned moved(std::move(other));
    std::swap(object_, moved.object_);
    return *this;
  }
  T* get() const noexcept { return object_; }

 private:
  T* object_ = nullptr;
};

// The image of an object, by its save.
template <class Save>
std::vector<std::byte> image(Save save) {
  std::int64_t size = 0;
  check(save(nullptr, &size));
  std::vector<std::byte> bytes(static_cast<std::size_t>(size));
  check(save(bytes.data(), &size));
  return bytes;
}

// Where an image begins. An empty one has a place as well: it is a damaged one, no null pointer.
inline const void* start(std::span<const std::byte> image) {
  static constexpr std::byte none{};
  return image.empty() ? &none : image.data();
}

// The C names by element type.
template <Real T>
struct C;
#define ORVIK_FRONT_C(T, d)                                                              \
  template <>                                                                            \
  struct C<T> {                                                                          \
    using Summary = orvik_##d##_summary;                                                 \
    using Spline = orvik_##d##_spline;                                                   \
    using StreamQuantiles = orvik_##d##_stream_quantiles;                                \
    static constexpr auto uniform = orvik_##d##_uniform;                                 \
    static constexpr auto uniform_threads = orvik_##d##_uniform_threads;                 \
    static constexpr auto normal = orvik_##d##_normal;                                   \
    static constexpr auto normal_threads = orvik_##d##_normal_threads;                   \
    static constexpr auto gaussian = orvik_##d##_gaussian;                               \
    static constexpr auto gaussian_threads = orvik_##d##_gaussian_threads;               \
    static constexpr auto multivariate_normal = orvik_##d##_multivariate_normal;         \
    static constexpr auto cauchy = orvik_##d##_cauchy;                                   \
    static constexpr auto cauchy_threads = orvik_##d##_cauchy_threads;                   \
    static constexpr auto exponential = orvik_##d##_exponential;                         \
    static constexpr auto exponential_threads = orvik_##d##_exponential_threads;         \
    static constexpr auto gumbel = orvik_##d##_gumbel;                                   \
    static constexpr auto gumbel_threads = orvik_##d##_gumbel_threads;                   \
    static constexpr auto laplace = orvik_##d##_laplace;                                 \
    static constexpr auto laplace_threads = orvik_##d##_laplace_threads;                 \
    static constexpr auto rayleigh = orvik_##d##_rayleigh;                               \
    static constexpr auto rayleigh_threads = orvik_##d##_rayleigh_threads;               \
    static constexpr auto weibull = orvik_##d##_weibull;                                 \
    static constexpr auto weibull_threads = orvik_##d##_weibull_threads;                 \
    static constexpr auto lognormal = orvik_##d##_lognormal;                             \
    static constexpr auto lognormal_threads = orvik_##d##_lognormal_threads;             \
    static constexpr auto gamma = orvik_##d##_gamma;                                     \
    static constexpr auto beta = orvik_##d##_beta;                                       \
    static constexpr auto chisquare = orvik_##d##_chisquare;                             \
    static constexpr auto summary_new = orvik_##d##_summary_new;                         \
    static constexpr auto summary_update = orvik_##d##_summary_update;                   \
    static constexpr auto summary_merge = orvik_##d##_summary_merge;                     \
    static constexpr auto summary_count = orvik_##d##_summary_count;                     \
    static constexpr auto summary_dimension = orvik_##d##_summary_dimension;             \
    static constexpr auto mean = orvik_##d##_summary_mean;                               \
    static constexpr auto variance = orvik_##d##_summary_variance;                       \
    static constexpr auto skewness = orvik_##d##_summary_skewness;                       \
    static constexpr auto kurtosis = orvik_##d##_summary_kurtosis;                       \
    static constexpr auto min = orvik_##d##_summary_min;                                 \
    static constexpr auto max = orvik_##d##_summary_max;                                 \
    static constexpr auto covariance = orvik_##d##_summary_covariance;                   \
    static constexpr auto correlation = orvik_##d##_summary_correlation;                 \
    static constexpr auto summary_save = orvik_##d##_summary_save;                       \
    static constexpr auto summary_load = orvik_##d##_summary_load;                       \
    static constexpr auto summary_delete = orvik_##d##_summary_delete;                   \
    static constexpr auto quantiles = orvik_##d##_quantiles;                             \
    static constexpr auto stream_quantiles_new = orvik_##d##_stream_quantiles_new;       \
    static constexpr auto stream_quantiles_update = orvik_##d##_stream_quantiles_update; \
    static constexpr auto stream_quantiles_query = orvik_##d##_stream_quantiles_query;   \
    static constexpr auto stream_quantiles_dimension =                                   \
        orvik_##d##_stream_quantiles_dimension;                                          \
    static constexpr auto stream_quantiles_save = orvik_##d##_stream_quantiles_save;     \
    static constexpr auto stream_quantiles_load = orvik_##d##_stream_quantiles_load;     \
    static constexpr auto stream_quantiles_delete = orvik_##d##_stream_quantiles_delete; \
    static constexpr auto sort = orvik_##d##_sort;                                       \
    static constexpr auto weighted_median = orvik_##d##_weighted_median;                 \
    static constexpr auto mad = orvik_##d##_mad;                                         \
    static constexpr auto outliers = orvik_##d##_outliers;                               \
    static constexpr auto robust_covariance = orvik_##d##_robust_covariance;             \
    static constexpr auto impute = orvik_##d##_impute;                                   \
    static constexpr auto spline_new = orvik_##d##_spline_new;                           \
    static constexpr auto spline_new_uniform = orvik_##d##_spline_new_uniform;           \
    static constexpr auto spline_evaluate = orvik_##d##_spline_evaluate;                 \
    static constexpr auto spline_integrate = orvik_##d##_spline_integrate;               \
    static constexpr auto spline_coefficients = orvik_##d##_spline_coefficients;         \
    static constexpr auto spline_shape = orvik_##d##_spline_shape;                       \
    static constexpr auto spline_delete = orvik_##d##_spline_delete;                     \
    static constexpr auto search = orvik_##d##_search;                                   \
  };
ORVIK_FRONT_C(double, d)
ORVIK_FRONT_C(float, s)
#undef ORVIK_FRONT_C

}  // namespace detail

// As the functions of these names in orvik/version.h and orvik/front.h.
inline const char* version() noexcept { return orvik_version(); }
inline bool cpu_supported() noexcept { return orvik_cpu_supported() != 0; }
inline void set_num_threads(int threads) { detail::check(orvik_set_num_threads(threads)); }

// ---- Random numbers
// --------------------------------------------------------------------------------------------------

// Generators.
enum class Generator : std::int32_t {
  MCG31M1 = ORVIK_MCG31M1,
  R250 = ORVIK_R250,
  MRG32K3A = ORVIK_MRG32K3A,
  MCG59 = ORVIK_MCG59,
  WH = ORVIK_WH,
  SOBOL = ORVIK_SOBOL,
  NIEDERREITER = ORVIK_NIEDERREITER,
  MT19937 = ORVIK_MT19937,
  MT2203 = ORVIK_MT2203,
  SFMT19937 = ORVIK_SFMT19937,
  TRNG = ORVIK_TRNG,
  ARS5 = ORVIK_ARS5,
  PHILOX4X32X10 = ORVIK_PHILOX4X32X10
};
// Member k of MT2203 or WH.
constexpr Generator member(Generator family, int k) {
  return static_cast<Generator>(static_cast<std::int32_t>(family) + k);
}

// A stream, and a uniform random bit generator of 32-bit words.
class Stream {
 public:
  // What std::uniform_random_bit_generator asks for.
  using result_type = std::uint32_t;
  static constexpr result_type min() { return 0; }
  static constexpr result_type max() { return std::numeric_limits<result_type>::max(); }

  // Seeded by the low and the high word of a seed (of Sobol and Niederreiter the dimension), or by words.
  explicit Stream(Generator generator = Generator::PHILOX4X32X10, std::uint64_t seed = 0) {
    orvik_stream* s = nullptr;
    detail::check(orvik_stream_new(&s, static_cast<std::int32_t>(generator), seed));
    owned_ = Handle(s);
  }
  Stream(Generator generator, std::span<const std::uint32_t> seeds) {
    orvik_stream* s = nullptr;
    if (seeds.size() > 0x7FFFFFFF) throw Error(ORVIK_ERROR_BAD_LENGTH);
    detail::check(orvik_stream_new_seeds(&s, static_cast<std::int32_t>(generator),
                                         static_cast<std::int32_t>(seeds.size()), seeds.data()));
    owned_ = Handle(s);
  }

  // The next word.
  result_type operator()() {
    result_type word;
    detail::check(orvik_i_words(get(), 1, &word));
    return word;
  }
  // An independent copy; members on; members k, k + nstreams ...; images; the generator: as orvik_stream_... of
  // front.h.
  Stream copy() const {
    orvik_stream* s = nullptr;
    detail::check(orvik_stream_copy(&s, get()));
    return Stream(Handle(s));
  }
  void skip(std::uint64_t count) { detail::check(orvik_stream_skip(get(), count)); }
  void skip_long(std::span<const std::uint64_t> count) {
    if (count.size() > 0x7FFFFFFF) throw Error(ORVIK_ERROR_BAD_LENGTH);
    detail::check(orvik_stream_skip_long(get(), static_cast<std::int32_t>(count.size()), count.data()));
  }
  void leapfrog(int k, int nstreams) { detail::check(orvik_stream_leapfrog(get(), k, nstreams)); }
  std::vector<std::byte> save() const {
    return detail::image([this](void* memory, std::int64_t* size) { return orvik_stream_save(get(), memory, size); });
  }
  static Stream load(std::span<const std::byte> image) {
    orvik_stream* s = nullptr;
    detail::check(orvik_stream_load(&s, detail::start(image), detail::length(image.size())));
    return Stream(Handle(s));
  }
  Generator generator() const { return static_cast<Generator>(detail::check(orvik_stream_generator(get()))); }
  orvik_stream* get() const noexcept { return owned_.get(); }  // null after a move

 private:
  using Handle = detail::Owned<orvik_stream, orvik_stream_delete>;
  explicit Stream(Handle&& owned) : owned_(std::move(owned)) {}
  Handle owned_;
};

// Distributions fill r, for float and double: uniform(stream, std::span<double>(r)). Those of one precision take what
// converts.
namespace detail {
template <class R>
using ElementOf = typename decltype(std::span(std::declval<R&>()))::element_type;
}
template <class R>
concept Results = requires(R& r) {
  std::span(r);
}
&&Real<detail::ElementOf<R>>;

#define ORVIK_FRONT_DRAW(name, parameters, ...)                                                    \
  template <Results R, class T = detail::ElementOf<R>>                                             \
  void name(Stream& s, R&& r, ORVIK_FRONT_LIST parameters) {                                       \
    const std::span<T> to(r);                                                                      \
    detail::check(detail::C<T>::name(s.get(), detail::length(to.size()), to.data(), __VA_ARGS__)); \
  }
#define ORVIK_FRONT_LIST(...) __VA_ARGS__
#define ORVIK_FRONT_SPLIT(name, parameters, ...)  \
  ORVIK_FRONT_DRAW(name, parameters, __VA_ARGS__) \
  ORVIK_FRONT_DRAW(name##_threads, (ORVIK_FRONT_LIST parameters, int threads = 0), __VA_ARGS__, threads)
using std::type_identity_t;
// Fills r with numbers of the distribution: orvik_d_... and orvik_s_... of that name in orvik/front.h.
// Over threads, 0: as many as pay, the forms with threads give the same numbers and leave the same stream.
ORVIK_FRONT_SPLIT(uniform, (type_identity_t<T> a = 0, type_identity_t<T> b = 1), a, b)
ORVIK_FRONT_SPLIT(normal, (type_identity_t<T> mean = 0, type_identity_t<T> sigma = 1), mean, sigma)
ORVIK_FRONT_SPLIT(gaussian,
                  (type_identity_t<T> mean = 0, type_identity_t<T> sigma = 1,
                   std::uint32_t method = ORVIK_GAUSSIAN_BOX_MULLER_PAIRS),
                  mean, sigma, method)
ORVIK_FRONT_SPLIT(cauchy, (type_identity_t<T> a = 0, type_identity_t<T> beta = 1), a, beta)
ORVIK_FRONT_SPLIT(exponential, (type_identity_t<T> a = 0, type_identity_t<T> beta = 1), a, beta)
ORVIK_FRONT_SPLIT(gumbel, (type_identity_t<T> a = 0, type_identity_t<T> beta = 1), a, beta)
ORVIK_FRONT_SPLIT(laplace, (type_identity_t<T> a = 0, type_identity_t<T> beta = 1), a, beta)
ORVIK_FRONT_SPLIT(rayleigh, (type_identity_t<T> a = 0, type_identity_t<T> beta = 1), a, beta)
ORVIK_FRONT_SPLIT(weibull, (type_identity_t<T> alpha, type_identity_t<T> a = 0, type_identity_t<T> beta = 1), alpha, a,
                  beta)
ORVIK_FRONT_SPLIT(lognormal,
                  (type_identity_t<T> a = 0, type_identity_t<T> sigma = 1, type_identity_t<T> b = 0,
                   type_identity_t<T> beta = 1, std::uint32_t method = 0),
                  a, sigma, b, beta, method)
ORVIK_FRONT_DRAW(gamma, (type_identity_t<T> alpha, type_identity_t<T> a = 0, type_identity_t<T> beta = 1), alpha, a,
                 beta)
ORVIK_FRONT_DRAW(beta,
                 (type_identity_t<T> p, type_identity_t<T> q, type_identity_t<T> a = 0, type_identity_t<T> scale = 1),
                 p, q, a, scale)
ORVIK_FRONT_DRAW(chisquare, (int v), v)
#undef ORVIK_FRONT_SPLIT
#undef ORVIK_FRONT_LIST
#undef ORVIK_FRONT_DRAW

// Vectors a + L z, as many as fit r; the factor L stored as ORVIK_FACTOR_... says.
template <Results R, class T = detail::ElementOf<R>>
void multivariate_normal(Stream& s, R&& r, std::span<const std::type_identity_t<T>> a,
                         std::span<const std::type_identity_t<T>> factor, std::int32_t storage = ORVIK_FACTOR_FULL,
                         std::uint32_t method = ORVIK_GAUSSIAN_BOX_MULLER) {
  const std::span<T> to(r);
  const std::size_t d = a.size();
  if (d == 0 || d > 0x7FFFFFFF || to.size() % d != 0 ||
      factor.size() != (storage == ORVIK_FACTOR_FULL     ? d * d
                        : storage == ORVIK_FACTOR_PACKED ? d * (d + 1) / 2
                                                         : d)) {
    throw Error(ORVIK_ERROR_BAD_LENGTH);
  }
  detail::check(detail::C<T>::multivariate_normal(s.get(), detail::length(to.size() / d), to.data(),
                                                  static_cast<std::int32_t>(d), storage, a.data(), factor.data(),
                                                  method));
}

// Fills r with integers: orvik_i_... of that name in orvik/front.h.
inline void words(Stream& s, std::span<std::uint32_t> r) {
  detail::check(orvik_i_words(s.get(), detail::length(r.size()), r.data()));
}
inline void uniform(Stream& s, std::span<std::int32_t> r, std::int32_t a, std::int32_t b) {
  detail::check(orvik_i_uniform(s.get(), detail::length(r.size()), r.data(), a, b));
}
inline void words_threads(Stream& s, std::span<std::uint32_t> r, int threads = 0) {
  detail::check(orvik_i_words_threads(s.get(), detail::length(r.size()), r.data(), threads));
}
inline void uniform_threads(Stream& s, std::span<std::int32_t> r, std::int32_t a, std::int32_t b, int threads = 0) {
  detail::check(orvik_i_uniform_threads(s.get(), detail::length(r.size()), r.data(), a, b, threads));
}
inline void bernoulli_threads(Stream& s, std::span<std::int32_t> r, double p, int threads = 0) {
  detail::check(orvik_i_bernoulli_threads(s.get(), detail::length(r.size()), r.data(), p, threads));
}
inline void geometric_threads(Stream& s, std::span<std::int32_t> r, double p, int threads = 0) {
  detail::check(orvik_i_geometric_threads(s.get(), detail::length(r.size()), r.data(), p, threads));
}
inline void bernoulli(Stream& s, std::span<std::int32_t> r, double p) {
  detail::check(orvik_i_bernoulli(s.get(), detail::length(r.size()), r.data(), p));
}
inline void geometric(Stream& s, std::span<std::int32_t> r, double p) {
  detail::check(orvik_i_geometric(s.get(), detail::length(r.size()), r.data(), p));
}
inline void binomial(Stream& s, std::span<std::int32_t> r, std::int32_t ntrial, double p) {
  detail::check(orvik_i_binomial(s.get(), detail::length(r.size()), r.data(), ntrial, p));
}
inline void hypergeometric(Stream& s, std::span<std::int32_t> r, std::int32_t l, std::int32_t sample,
                           std::int32_t marked) {
  detail::check(orvik_i_hypergeometric(s.get(), detail::length(r.size()), r.data(), l, sample, marked));
}
inline void negbinomial(Stream& s, std::span<std::int32_t> r, double a, double p) {
  detail::check(orvik_i_negbinomial(s.get(), detail::length(r.size()), r.data(), a, p));
}
inline void poisson(Stream& s, std::span<std::int32_t> r, double lambda,
                    std::uint32_t method = ORVIK_POISSON_REJECTION) {
  detail::check(orvik_i_poisson(s.get(), detail::length(r.size()), r.data(), lambda, method));
}
inline void poissonv(Stream& s, std::span<std::int32_t> r, std::span<const double> lambda) {
  detail::check(orvik_i_poissonv(s.get(), detail::same_size(r.size(), lambda.size()), r.data(), lambda.data()));
}
// As many rows of p.size() counts as fit r.
inline void multinomial(Stream& s, std::span<std::int32_t> r, std::int32_t ntrial, std::span<const double> p,
                        std::uint32_t method = ORVIK_MULTINOMIAL_SEQUENTIAL) {
  const std::size_t k = p.size();
  if (k == 0 || k > 0x7FFFFFFF || r.size() % k != 0) throw Error(ORVIK_ERROR_BAD_LENGTH);
  detail::check(orvik_i_multinomial(s.get(), detail::length(r.size() / k), r.data(), ntrial,
                                    static_cast<std::int32_t>(k), p.data(), method));
}

// ---- Statistics
// ------------------------------------------------------------------------------------------------------

// Whether a variable or an observation is contiguous.
enum class Layout : std::int32_t { Rows = ORVIK_ROWS, Columns = ORVIK_COLUMNS };

namespace detail {
// What converts to a span of reals, but is not one already.
template <class X>
using DataOf = std::remove_const_t<typename decltype(std::span(std::declval<const X&>()))::element_type>;
template <class X>
concept Data = requires(const X& x) {
  std::span(x);
}
&&Real<DataOf<X>> && !std::same_as<X, std::span<const DataOf<X>>>;

// n observations of p variables in x, neither more nor fewer.
template <Real T>
void check_data(std::span<const T> x, std::int64_t n, std::int64_t p) {
  if (n < 0 || p < 1 || (n > 0 && p > std::numeric_limits<std::int64_t>::max() / n) || n * p != length(x.size())) {
    throw Error(ORVIK_ERROR_BAD_LENGTH);
  }
}
}  // namespace detail

// Moments, extremes, covariance of all that was fed; merges, saves, loads.
template <Real T>
class Summary {
 public:
  // As orvik_d_summary_... of these names in orvik/front.h, for p variables.
  explicit Summary(std::int64_t p) {
    typename F::Summary* s = nullptr;
    detail::check(F::summary_new(&s, p));
    owned_ = Handle(s);
  }
  void update(std::span<const T> x, std::int64_t n, Layout layout, std::span<const T> weights = {}) {
    detail::check_data(x, n, dimension());
    if (!weights.empty() && detail::length(weights.size()) != n) throw Error(ORVIK_ERROR_BAD_LENGTH);
    detail::check(F::summary_update(owned_.get(), n, x.data(), static_cast<std::int32_t>(layout),
                                    weights.empty() ? nullptr : weights.data()));
  }
  void merge(const Summary& other) { detail::check(F::summary_merge(owned_.get(), other.owned_.get())); }
  std::int64_t count() const {
    std::int64_t n = 0;
    detail::check(F::summary_count(owned_.get(), &n));
    return n;
  }
  std::int64_t dimension() const {
    std::int64_t p = 0;
    detail::check(F::summary_dimension(owned_.get(), &p));
    return p;
  }
  std::vector<T> mean() const { return result(F::mean, false); }
  std::vector<T> variance() const { return result(F::variance, false); }
  std::vector<T> skewness() const { return result(F::skewness, false); }
  std::vector<T> kurtosis() const { return result(F::kurtosis, false); }
  std::vector<T> min() const { return result(F::min, false); }
  std::vector<T> max() const { return result(F::max, false); }
  std::vector<T> covariance() const { return result(F::covariance, true); }  // p * p
  std::vector<T> correlation() const { return result(F::correlation, true); }
  std::vector<std::byte> save() const {
    return detail::image(
        [this](void* memory, std::int64_t* size) { return F::summary_save(owned_.get(), memory, size); });
  }
  static Summary load(std::span<const std::byte> image) {
    typename F::Summary* s = nullptr;
    detail::check(F::summary_load(&s, detail::start(image), detail::length(image.size())));
    return Summary(Handle(s));
  }

 private:
  using F = detail::C<T>;
  using Handle = detail::Owned<typename F::Summary, F::summary_delete>;
  explicit Summary(Handle&& owned) : owned_(std::move(owned)) {}
  std::vector<T> result(std::int32_t (*read)(const typename F::Summary*, T*), bool matrix) const {
    const auto p = static_cast<std::size_t>(dimension());
    std::vector<T> r(matrix ? p * p : p);
    detail::check(read(owned_.get(), r.data()));
    return r;
  }
  Handle owned_;
};

// Results variable by variable.
template <Real T>
std::vector<T> quantiles(std::span<const T> x, std::int64_t n, std::int64_t p, Layout layout,
                         std::span<const std::type_identity_t<T>> orders) {
  detail::check_data(x, n, p);
  std::vector<T> r(static_cast<std::size_t>(p) * orders.size());
  detail::check(detail::C<T>::quantiles(n, p, x.data(), static_cast<std::int32_t>(layout),
                                        detail::length(orders.size()), orders.data(), r.data()));
  return r;
}
template <Real T>
std::vector<T> sort(std::span<const T> x, std::int64_t n, std::int64_t p, Layout layout) {
  detail::check_data(x, n, p);
  std::vector<T> r(x.size());
  if (n > 0) detail::check(detail::C<T>::sort(n, p, x.data(), static_cast<std::int32_t>(layout), r.data()));
  return r;
}
template <Real T>
std::vector<T> weighted_median(std::span<const T> x, std::int64_t n, std::int64_t p, Layout layout,
                               std::span<const std::type_identity_t<T>> weights) {
  detail::check_data(x, n, p);
  if (detail::length(weights.size()) != n) throw Error(ORVIK_ERROR_BAD_LENGTH);
  std::vector<T> r(static_cast<std::size_t>(p));
  detail::check(
      detail::C<T>::weighted_median(n, p, x.data(), static_cast<std::int32_t>(layout), weights.data(), r.data()));
  return r;
}
template <Real T>
std::vector<T> mad(std::span<const T> x, std::int64_t n, std::int64_t p, Layout layout) {
  detail::check_data(x, n, p);
  std::vector<T> r(static_cast<std::size_t>(p));
  detail::check(detail::C<T>::mad(n, p, x.data(), static_cast<std::int32_t>(layout), r.data()));
  return r;
}
// 1 for an outlier, else 0.
template <Real T>
std::vector<std::int8_t> outliers(std::span<const T> x, std::int64_t n, std::int64_t p, Layout layout,
                                  std::type_identity_t<T> alpha = T(0.05)) {
  detail::check_data(x, n, p);
  std::vector<std::int8_t> r(static_cast<std::size_t>(n));
  detail::check(detail::C<T>::outliers(n, p, x.data(), static_cast<std::int32_t>(layout), alpha, r.data()));
  return r;
}
// What robust_covariance gives.
template <Real T>
struct MeanAndCovariance {
  std::vector<T> mean;        // p
  std::vector<T> covariance;  // p * p
};
template <Real T>
MeanAndCovariance<T> robust_covariance(std::span<const T> x, std::int64_t n, std::int64_t p, Layout layout) {
  detail::check_data(x, n, p);
  const auto size = static_cast<std::size_t>(n > 2 * p ? p : 1);  // no room for what is refused
  MeanAndCovariance<T> r = {std::vector<T>(size), std::vector<T>(size * size)};
  detail::check(detail::C<T>::robust_covariance(n, p, x.data(), static_cast<std::int32_t>(layout), r.mean.data(),
                                                r.covariance.data()));
  return r;
}
// Completed data, set after set.
template <Real T>
std::vector<T> impute(std::span<const T> x, std::int64_t n, std::int64_t p, Layout layout, std::int64_t sets = 1) {
  detail::check_data(x, n, p);
  constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / 16;  // bytes of r can be counted
  if (sets < 0 || (!x.empty() && sets > most / detail::length(x.size()))) throw Error(ORVIK_ERROR_BAD_LENGTH);
  std::vector<T> r(x.size() * static_cast<std::size_t>(sets));
  detail::check(detail::C<T>::impute(n, p, x.data(), static_cast<std::int32_t>(layout), sets, r.data()));
  return r;
}
// The same of whatever converts to a span.
template <detail::Data X>
auto outliers(const X& x, std::int64_t n, std::int64_t p, Layout layout,
              detail::DataOf<X> alpha = detail::DataOf<X>(0.05)) {
  return outliers<detail::DataOf<X>>(std::span<const detail::DataOf<X>>(x), n, p, layout, alpha);
}
template <detail::Data X>
auto impute(const X& x, std::int64_t n, std::int64_t p, Layout layout, std::int64_t sets = 1) {
  return impute<detail::DataOf<X>>(std::span<const detail::DataOf<X>>(x), n, p, layout, sets);
}
#define ORVIK_FRONT_OF_DATA(name)                                                             \
  template <detail::Data X, class... More>                                                    \
  auto name(const X& x, std::int64_t n, std::int64_t p, Layout layout, const More&... more) { \
    using T = detail::DataOf<X>;                                                              \
    return name<T>(std::span<const T>(x), n, p, layout, std::span<const T>(more)...);         \
  }
ORVIK_FRONT_OF_DATA(quantiles)
ORVIK_FRONT_OF_DATA(sort)
ORVIK_FRONT_OF_DATA(weighted_median)
ORVIK_FRONT_OF_DATA(mad)
ORVIK_FRONT_OF_DATA(robust_covariance)
#undef ORVIK_FRONT_OF_DATA

// Quantiles of what is fed block by block, ranks off by epsilon n at most.
template <Real T>
class StreamQuantiles {
 public:
  // As orvik_d_stream_quantiles_... in orvik/front.h, for p variables.
  StreamQuantiles(std::int64_t p, T epsilon) : p_(p) {
    typename F::StreamQuantiles* s = nullptr;
    detail::check(F::stream_quantiles_new(&s, p, epsilon));
    owned_ = Handle(s);
  }
  void update(std::span<const T> x, std::int64_t n, Layout layout) {
    detail::check_data(x, n, p_);
    detail::check(F::stream_quantiles_update(owned_.get(), n, x.data(), static_cast<std::int32_t>(layout)));
  }
  std::vector<T> quantile(T q) const { return quantile(std::span<const T>(&q, 1)); }  // of each variable
  std::vector<T> quantile(std::span<const T> orders) const {
    std::vector<T> r(static_cast<std::size_t>(p_) * orders.size());
    detail::check(F::stream_quantiles_query(owned_.get(), detail::length(orders.size()), orders.data(), r.data()));
    return r;
  }
  std::int64_t dimension() const { return p_; }
  std::vector<std::byte> save() const {
    return detail::image(
        [this](void* memory, std::int64_t* size) { return F::stream_quantiles_save(owned_.get(), memory, size); });
  }
  static StreamQuantiles load(std::span<const std::byte> image) {
    typename F::StreamQuantiles* s = nullptr;
    detail::check(F::stream_quantiles_load(&s, detail::start(image), detail::length(image.size())));
    return StreamQuantiles(Handle(s));
  }

 private:
  using F = detail::C<T>;
  using Handle = detail::Owned<typename F::StreamQuantiles, F::stream_quantiles_delete>;
  explicit StreamQuantiles(Handle&& owned) : owned_(std::move(owned)) {
    detail::check(F::stream_quantiles_dimension(owned_.get(), &p_));
  }
  std::int64_t p_;
  Handle owned_;
};

// ---- Data fitting
// ----------------------------------------------------------------------------------------------------

// Kinds of splines.
enum class Kind : std::int32_t {
  Linear = ORVIK_LINEAR,
  Hermite = ORVIK_HERMITE,
  Bessel = ORVIK_BESSEL,
  Akima = ORVIK_AKIMA,
  Hyman = ORVIK_HYMAN,
  Natural = ORVIK_NATURAL,
  Default = ORVIK_DEFAULT,
  Quadratic = ORVIK_QUADRATIC
};

// What holds at the ends: second derivatives of 0 or what the kind has by itself, no knot next to them, periodic, or
// derivatives given.
struct Ends {
  // The kind with its values, and the functions that make them.
  orvik_spline_ends ends = {ORVIK_ENDS_FREE, 0, 0};
  static Ends free() { return {}; }
  static Ends not_a_knot() { return {{ORVIK_ENDS_NOT_A_KNOT, 0, 0}}; }
  static Ends periodic() { return {{ORVIK_ENDS_PERIODIC, 0, 0}}; }
  static Ends first(double left, double right) { return {{ORVIK_ENDS_FIRST, left, right}}; }
  static Ends second(double left, double right) { return {{ORVIK_ENDS_SECOND, left, right}}; }
};

// A spline through one or several functions, rows of y, over one partition.
template <Real T>
class Spline {
 public:
  // Through the points x, of each row of y.
  Spline(std::span<const T> x, std::span<const T> y, Kind kind = Kind::Natural, Ends ends = {},
         std::span<const T> internal = {}) {
    const std::int64_t nx = detail::length(x.size()), ny = functions(nx, y, kind, internal);
    typename F::Spline* s = nullptr;
    detail::check(F::spline_new(&s, nx, x.data(), ny, y.data(), static_cast<std::int32_t>(kind), &ends.ends,
                                internal.empty() ? nullptr : internal.data()));
    owned_ = Handle(s);
  }
  // n breakpoints evenly from x0 to x1.
  static Spline uniform(T x0, T x1, std::int64_t n, std::span<const T> y, Kind kind = Kind::Natural, Ends ends = {},
                        std::span<const T> internal = {}) {
    const std::int64_t ny = functions(n, y, kind, internal);
    typename F::Spline* s = nullptr;
    detail::check(F::spline_new_uniform(&s, x0, x1, n, ny, y.data(), static_cast<std::int32_t>(kind), &ends.ends,
                                        internal.empty() ? nullptr : internal.data()));
    return Spline(Handle(s));
  }
  // The value at t, of the only function.
  T operator()(T t) const {
    T r;
    evaluate(std::span<const T>(&t, 1), std::span<T>(&r, 1));
    return r;
  }
  // Function f at t[i] to r[f * t.size() + i].
  void evaluate(std::span<const T> t, std::span<T> r, int derivative = 0) const {
    if (r.size() != t.size() * size()) throw Error(ORVIK_ERROR_BAD_LENGTH);
    detail::check(F::spline_evaluate(owned_.get(), detail::length(t.size()), t.data(), r.data(), derivative));
  }
  std::vector<T> evaluate(std::span<const T> t, int derivative = 0) const {
    std::vector<T> r(t.size() * size());
    evaluate(t, r, derivative);
    return r;
  }
  // The integral from a to b of the only function; of function f from a[i] to b[i] to r[f * a.size() + i].
  T integrate(T a, T b) const {
    T r;
    integrate(std::span<const T>(&a, 1), std::span<const T>(&b, 1), std::span<T>(&r, 1));
    return r;
  }
  void integrate(std::span<const T> a, std::span<const T> b, std::span<T> r) const {
    if (a.size() != b.size() || r.size() != a.size() * size()) throw Error(ORVIK_ERROR_BAD_LENGTH);
    detail::check(F::spline_integrate(owned_.get(), detail::length(a.size()), a.data(), b.data(), r.data()));
  }
  // Function by function, piece by piece, lowest power first about the piece's left end.
  std::vector<T> coefficients() const {
    std::int64_t count = 0;
    detail::check(F::spline_coefficients(owned_.get(), nullptr, &count));
    std::vector<T> c(static_cast<std::size_t>(count));
    detail::check(F::spline_coefficients(owned_.get(), c.data(), &count));
    return c;
  }
  std::size_t size() const {  // functions
    std::int64_t ny = 0;
    detail::check(F::spline_shape(owned_.get(), nullptr, &ny, nullptr));
    return static_cast<std::size_t>(ny);
  }

 private:
  using F = detail::C<T>;
  using Handle = detail::Owned<typename F::Spline, F::spline_delete>;
  explicit Spline(Handle&& owned) : owned_(std::move(owned)) {}
  static std::int64_t functions(std::int64_t nx, std::span<const T> y, Kind kind, std::span<const T> internal) {
    const std::int64_t values = detail::length(y.size());
    const bool wants = kind == Kind::Hermite || kind == Kind::Default;
    if (nx < 2) throw Error(ORVIK_ERROR_NOT_SORTED);
    if (values == 0 || values % nx != 0 || (wants && detail::length(internal.size()) != nx - 2)) {
      throw Error(ORVIK_ERROR_BAD_LENGTH);
    }
    return values / nx;
  }
  Handle owned_;
};
template <class X, class Y, class... More>
Spline(const X&, const Y&, More...)
    -> Spline<std::remove_const_t<typename decltype(std::span(std::declval<const X&>()))::element_type>>;

// How many breakpoints are not above each t; all for a NaN.
template <Real T>
std::vector<std::int64_t> search(std::span<const T> x, std::span<const std::type_identity_t<T>> t) {
  std::vector<std::int64_t> cell(t.size());
  detail::check(
      detail::C<T>::search(detail::length(x.size()), x.data(), detail::length(t.size()), t.data(), cell.data()));
  return cell;
}
template <detail::Data X, class Sites>
std::vector<std::int64_t> search(const X& x, const Sites& t) {
  using T = detail::DataOf<X>;
  return search<T>(std::span<const T>(x), std::span<const T>(t));
}

}  // namespace orvik

#include "orvik/front_functions.hpp"

#endif

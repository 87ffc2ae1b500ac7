#include "zym/frame/report.h"

#include <cstring>

#include "zym/frame/handler.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

constexpr int32_t kNameLimit = 47;

template <class E>
struct Operand {
  E* base;
  int32_t increment;
};

// Between elements and the context's doubles.
void widen(float x, double& re, double&) { re = static_cast<double>(x); }
void widen(double x, double& re, double&) { re = x; }
template <class Complex>
void widen(const Complex& x, double& re, double& im) {
  re = static_cast<double>(x.re);
  im = static_cast<double>(x.im);
}

void narrow(double re, double, float& x) { x = static_cast<float>(re); }
void narrow(double re, double, double& x) { x = re; }
template <class Complex>
void narrow(double re, double im, Complex& x) {
  x.re = static_cast<decltype(x.re)>(re);
  x.im = static_cast<decltype(x.im)>(im);
}

template <class E>
E& element(Operand<E> operand, int32_t index) {
  return operand.base[static_cast<int64_t>(index) * operand.increment];
}

void copy_name(const char* name, ZymErrorContext& context) {
  const int32_t length = static_cast<int32_t>(strnlen(name, kNameLimit));
  std::memcpy(context.functionName, name, static_cast<size_t>(length));
  context.functionName[length] = '\0';
  context.functionNameLength = length;
}

template <class E>
void report(int32_t code, int32_t index, Operand<const E> a, Operand<const E> b, Operand<E> r1, Operand<E> r2,
            const char* name) {
  const uint32_t mode = current_mode();
  const uint32_t handling = mode & kErrorField;
  if (handling == ZYM_ERRMODE_NOERR) return;
  thread_block.errorStatus = code;
  if (handling == ZYM_ERRMODE_IGNORE) return;

  ZymErrorContext context;  // member by member: as a whole it would be cleared by the slow string instructions
  std::memset(context.functionName, 0, sizeof context.functionName);
  context.arg1 = context.arg2 = context.result1 = context.result2 = 0;
  context.arg1Imag = context.arg2Imag = context.result1Imag = context.result2Imag = 0;
  context.code = code;
  context.index = index;
  if (const void* start = thread_block.inputVectorPointer; start != nullptr) {
    const intptr_t bytes = reinterpret_cast<intptr_t>(a.base) - reinterpret_cast<intptr_t>(start);
    context.index += static_cast<int32_t>(bytes / static_cast<intptr_t>(sizeof(E)));
  }
  copy_name(name, context);

  const bool has_values = code != zymErrorBadArgument && code != zymErrorBadAccess;
  if (has_values) {
    widen(element(a, index), context.arg1, context.arg1Imag);
    widen(element(b, index), context.arg2, context.arg2Imag);
    widen(element(r1, index), context.result1, context.result1Imag);
    widen(element(r2, index), context.result2, context.result2Imag);
  }
  if ((mode & ZYM_ERRMODE_CALLBACK) != 0 && thread_block.errorCallback != nullptr &&
      thread_block.errorCallback(&context) != 0) {
    return;
  }
  constexpr uint32_t kHandled = 0x2F00;
  if ((mode & kHandled) != 0) handle_report(context);
  if (has_values) {
    narrow(context.result2, context.result2Imag, element(r2, index));
    narrow(context.result1, context.result1Imag, element(r1, index));
  }
}

}  // namespace

#define ORVIK_REPORTERS(Name, E)                                                                             \
  void Name(int32_t code, int32_t index, const E* a, const E* b, E* r1, E* r2, const char* name) {           \
    Name##Strided(code, index, a, 1, b, 1, r1, 1, r2, 1, name);                                              \
  }                                                                                                          \
  void Name##Strided(int32_t code, int32_t index, const E* a, int32_t incA, const E* b, int32_t incB, E* r1, \
                     int32_t incR1, E* r2, int32_t incR2, const char* name) {                                \
    report<E>(code, index, {a, incA}, {b, incB}, {r1, incR1}, {r2, incR2}, name);                            \
  }

ORVIK_REPORTERS(zymReportFloat, float)
ORVIK_REPORTERS(zymReportDouble, double)
ORVIK_REPORTERS(zymReportComplexFloat, ZymComplexFloat)
ORVIK_REPORTERS(zymReportComplexDouble, ZymComplexDouble)

}  // namespace orvik::zym

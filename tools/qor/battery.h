// Statistical tests of uniform numbers. Each takes a source of values and returns a p-value: the probability that truly
// random numbers look at least as far on one side; values very near 0 or 1 are bad.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvik::battery {

// Values whose leading `bits` bits, from bit 31 down, are random and the others zero.
struct Source {
  int bits;
  std::function<uint32_t()> next;
};

double monobit(Source& source, int64_t values);
double runs(Source& source, int64_t values);
double serial_correlation(Source& source, int64_t values);
double birthday_spacings(Source& source, int64_t rounds);  // 256 birthdays in 2^22 days a round
double collisions(Source& source, int64_t rounds);         // 4,096 balls into 2^22 urns a round
double gaps(Source& source, int64_t count);                // between values below 1/8
double matrix_rank(Source& source, int64_t matrices);      // 22 x 22

struct Test {
  const char* name;
  double (*run)(Source& source, int64_t size);
  int64_t size;  // of the short form
};
const std::vector<Test>& tests();

enum class Form { words, floats, doubles };
const char* name_of(Form form);

struct Generator {
  const char* name;
  int32_t brng;
  bool quasi;  // points that are more even than random ones
};
// All of the list.
const std::vector<Generator>& generators();

// The output of a generator in one form, seeded by one word (R250 by 250 random ones, since one word leaves regular low
// bits); of abstract generators the numbers of another one that pass
// through a caller's ring. An empty `next` where the generator has no such form.
Source make_source(int32_t brng, uint32_t seed, Form form);

}  // namespace orvik::battery

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "orvik/serv.h"

namespace {

template <typename... Arguments>
std::string printed(int32_t number, int32_t count, Arguments... arguments) {
  testing::internal::CaptureStderr();
  orvik_serv_print(1, number, count, arguments...);
  return testing::internal::GetCapturedStderr();
}

testing::AssertionResult is_one_line_with(const std::string& text, std::initializer_list<const char*> parts) {
  if (std::count(text.begin(), text.end(), '\n') != 1 || text.back() != '\n') {
    return testing::AssertionFailure() << "not one line: " << text;
  }
  for (const char* part : parts) {
    if (text.find(part) == std::string::npos) return testing::AssertionFailure() << "no '" << part << "' in " << text;
  }
  return testing::AssertionSuccess();
}

TEST(Messages, ABadArgumentNamesTheFunctionAndTheArgument) {
  EXPECT_TRUE(is_one_line_with(printed(748, 2, "vdExp", int32_t{3}), {"vdExp", "argument 3"}));
}

TEST(Messages, ErrorsNameTheFunctionAndSayWhatHappened) {
  const struct {
    int32_t number;
    const char* word;
  } cases[] = {{749, "memory"},    {750, "domain"},  {751, "singularity"}, {752, "overflow"},
               {753, "underflow"}, {754, "error"},   {767, "memory"},      {768, "not supported"},
               {769, "processor"}, {770, "library"}, {771, "mode"},        {772, "internal"}};
  for (const auto& one : cases) {
    EXPECT_TRUE(is_one_line_with(printed(one.number, 1, "vsLn"), {"vsLn: ", one.word})) << one.number;
  }
}

TEST(Messages, ValueLinesGiveIndexAndValueAndTheFunctionNamedLast) {
  const struct {
    int32_t number;
    const char* word;
  } cases[] = {{755, "argument"},       {756, "result"},          {757, "argument"},        {758, "first result"},
               {759, "second result"},  {760, "first argument"},  {761, "second argument"}, {762, "result"},
               {763, "first argument"}, {764, "second argument"}, {765, "first result"},    {766, "second result"}};
  printed(752, 1, "vdPow");
  for (const auto& one : cases) {
    EXPECT_TRUE(is_one_line_with(printed(one.number, 2, int32_t{1003}, -0.1),
                                 {"vdPow: ", "element 1003", one.word, "-0.10000000000000001"}))
        << one.number;
  }
}

TEST(Messages, ValuesThatAreNoNumbersPrint) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(is_one_line_with(printed(756, 2, int32_t{0}, infinity), {"inf"}));
  EXPECT_TRUE(is_one_line_with(printed(756, 2, int32_t{0}, std::nan("")), {"nan"}));
}

TEST(Messages, NoMemoryForAThreadTakesNoArgument) {
  EXPECT_TRUE(is_one_line_with(printed(773, 0), {"memory", "thread"}));
}

TEST(Messages, NumbersOutsideTheCatalogueAreSaidToBeSo) {
  for (int32_t number : {0, 747, 774, -1}) {
    EXPECT_TRUE(is_one_line_with(printed(number, 0), {"message", std::to_string(number).c_str()}));
  }
}

TEST(Messages, TooFewArgumentsAreNotRead) {
  EXPECT_TRUE(is_one_line_with(printed(755, 0), {"message 755"}));
  EXPECT_TRUE(is_one_line_with(printed(750, 0), {"message 750"}));
}

TEST(Messages, LongNamesAreCut) {
  const std::string name(1000, 'f');
  EXPECT_TRUE(is_one_line_with(printed(750, 1, name.c_str()), {"fff", "domain"}));
}

TEST(Messages, ErrnoSurvives) {
  errno = ERANGE;
  printed(750, 1, "vdLn");
  EXPECT_EQ(errno, ERANGE);
}

TEST(Messages, LinesOfSeveralThreadsDoNotMix) {
  testing::internal::CaptureStderr();
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t] {
      const std::string name = "vdF" + std::to_string(t);
      orvik_serv_print(1, 750, 1, name.c_str());
      for (int32_t i = 0; i < 100; ++i) orvik_serv_print(1, 755, 2, i, static_cast<double>(t));
    });
  }
  for (auto& thread : threads) thread.join();
  const std::string text = testing::internal::GetCapturedStderr();
  int lines = 0;
  for (size_t start = 0, end; (end = text.find('\n', start)) != std::string::npos; start = end + 1, ++lines) {
    const std::string line = text.substr(start, end - start);
    ASSERT_EQ(line.rfind("vdF", 0), 0u) << line;
    if (line.find("element") == std::string::npos) continue;
    EXPECT_EQ(line.back(), line[3]) << line;  // the value is the number in the name
  }
  EXPECT_EQ(lines, 4 * 101);
}

}  // namespace

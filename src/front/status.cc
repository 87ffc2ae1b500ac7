// Sentences for statuses.
#include "orvik/front.h"

namespace {

struct Sentence {
  int32_t status;
  const char* text;
};

constexpr Sentence kSentences[] = {
#define STATUS(number, text) {number, text},
#define SHARED(number, stream, fitting) {number, "Of a stream: " stream ". Of data fitting: " fitting "."},
#include "front/statuses.def"
#undef STATUS
#undef SHARED
};

constexpr bool descending() {
  for (unsigned k = 1; k < sizeof kSentences / sizeof *kSentences; ++k) {
    if (kSentences[k].status >= kSentences[k - 1].status) return false;
  }
  return true;
}
static_assert(descending());

}  // namespace

extern "C" const char* orvik_status_text(int32_t status) {
  for (const Sentence& sentence : kSentences) {
    if (sentence.status == status) return sentence.text;
  }
  return status > 0 ? "A status of no error that this version does not know."
                    : "An error that this version does not know.";
}

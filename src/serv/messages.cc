// The message catalogue: numbers and arguments are fixed by the callers, the words are ours.
#include <errno.h>
#include <stdarg.h>
#include <stdio.h>
#include <string.h>
#include <unistd.h>

#include <algorithm>

#include "orvik/serv.h"

namespace {

constexpr int32_t kFirst = 748;
constexpr int32_t kLast = 773;

// What a message is filled with, in the order in which the caller passes it.
enum class Form {
  kPlain,     // nothing
  kFunction,  // const char*: the function
  kArgument,  // const char*, int32_t: the function, which of its arguments
  kValue,     // int32_t, double: the element, a value; the function is the one that the thread named last
};

struct Message {
  Form form;
  const char* words;
};

constexpr Message kCatalogue[] = {
    /* 748 */ {Form::kArgument, "has an illegal value"},
    /* 749 */ {Form::kFunction, "an argument points to memory that cannot be used"},
    /* 750 */ {Form::kFunction, "an argument lies outside the domain of the function"},
    /* 751 */ {Form::kFunction, "an argument is a singularity of the function"},
    /* 752 */ {Form::kFunction, "a result is too large to be represented (overflow)"},
    /* 753 */ {Form::kFunction, "a result is too small to be represented (underflow)"},
    /* 754 */ {Form::kFunction, "an element could not be computed (unknown error)"},
    /* 755 */ {Form::kValue, "argument"},
    /* 756 */ {Form::kValue, "result"},
    /* 757 */ {Form::kValue, "argument"},
    /* 758 */ {Form::kValue, "first result"},
    /* 759 */ {Form::kValue, "second result"},
    /* 760 */ {Form::kValue, "first argument"},
    /* 761 */ {Form::kValue, "second argument"},
    /* 762 */ {Form::kValue, "result"},
    /* 763 */ {Form::kValue, "first argument"},
    /* 764 */ {Form::kValue, "second argument"},
    /* 765 */ {Form::kValue, "first result"},
    /* 766 */ {Form::kValue, "second result"},
    /* 767 */ {Form::kFunction, "not enough memory"},
    /* 768 */ {Form::kFunction, "this function is not supported"},
    /* 769 */ {Form::kFunction, "this processor lacks instructions that the function needs"},
    /* 770 */ {Form::kFunction, "a library that the function needs cannot be loaded"},
    /* 771 */ {Form::kFunction, "the mode word has an illegal value"},
    /* 772 */ {Form::kFunction, "internal error"},
    /* 773 */ {Form::kPlain, "vector mathematics: no memory for the state of a thread, the process ends"},
};
static_assert(sizeof kCatalogue / sizeof kCatalogue[0] == kLast - kFirst + 1);

// Lines of values come without a name, behind the line that had it: kept, so that every line names its function.
thread_local char function[64];

void set_function(const char* name) {
  const size_t length = std::min(strlen(name), sizeof function - 1);
  memcpy(function, name, length);
  function[length] = '\0';
}

// One write for the whole line, so that the lines of several threads do not mix.
void write_line(char* text, size_t length) {
  text[length++] = '\n';
  while (length > 0) {
    const ssize_t written = write(STDERR_FILENO, text, length);
    if (written < 0 && errno != EINTR) return;
    if (written > 0) {
      text += written;
      length -= static_cast<size_t>(written);
    }
  }
}

}  // namespace

extern "C" void orvik_serv_print(int32_t, int32_t number, int32_t count, ...) {
  const int saved_errno = errno;  // the callers' reports set it, and it must outlive their text
  char line[256];
  constexpr size_t kRoom = sizeof line - 1;  // the newline
  int length = 0;
  va_list arguments;
  va_start(arguments, count);
  const Message message =
      number >= kFirst && number <= kLast ? kCatalogue[number - kFirst] : Message{Form::kPlain, nullptr};
  const int32_t wanted = message.form == Form::kPlain ? 0 : message.form == Form::kFunction ? 1 : 2;
  if (message.words == nullptr || count < wanted) {
    length = snprintf(line, kRoom, "orvik: message %d with %d arguments", number, count);
  } else {
    switch (message.form) {
      case Form::kPlain:
        length = snprintf(line, kRoom, "%s", message.words);
        break;
      case Form::kFunction:
        set_function(va_arg(arguments, const char*));
        length = snprintf(line, kRoom, "%s: %s", function, message.words);
        break;
      case Form::kArgument: {
        set_function(va_arg(arguments, const char*));
        const int32_t argument = va_arg(arguments, int32_t);
        length = snprintf(line, kRoom, "%s: argument %d %s", function, argument, message.words);
        break;
      }
      case Form::kValue: {
        const int32_t element = va_arg(arguments, int32_t);
        const double value = va_arg(arguments, double);
        length = snprintf(line, kRoom, "%s: element %d: %s %.17g", function, element, message.words, value);
        break;
      }
    }
  }
  va_end(arguments);
  if (length > 0) write_line(line, std::min(static_cast<size_t>(length), kRoom - 1));
  errno = saved_errno;
}

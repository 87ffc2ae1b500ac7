/* Loads the front's library, calls it on several threads, forks, and unloads it, many times: no thread, handler or object of it
 * stays. Argument: the library. */
#include <dirent.h>
#include <dlfcn.h>
#include <orvik/front.h>
#include <stdio.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

static int threads(void) {
  int count = 0;
  DIR* tasks = opendir("/proc/self/task");
  if (!tasks) return -1;
  for (struct dirent* entry; (entry = readdir(tasks)) != NULL;) count += entry->d_name[0] != '.';
  closedir(tasks);
  return count;
}

/* A thread that has been joined may be listed for a moment more. */
static int one_thread_is_left(void) {
  for (int k = 0; k < 1000; ++k) {
    if (threads() == 1) return 1;
    const struct timespec moment = {0, 1000000};
    nanosleep(&moment, NULL);
  }
  return 0;
}

static int round_trip(const char* library) {
  static double a[100000], r[100000];
  void* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  if (!handle) {
    fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  orvik_status (*exp)(int64_t, const double*, double*, orvik_math_options*);
  orvik_status (*stream_new)(orvik_stream**, int32_t, uint64_t);
  *(void**)&exp = dlsym(handle, "orvik_dexp");
  *(void**)&stream_new = dlsym(handle, "orvik_stream_new");
  orvik_math_options options = {ORVIK_HA, 3, NULL, 0, 0};
  orvik_stream* left_alone;
  int bad = threads() != 1; /* loading starts none */
  bad |= exp(100000, a, r, &options) != ORVIK_SUCCESS || r[99999] != 1;
  bad |= stream_new(&left_alone, ORVIK_PHILOX4X32X10, 1) != ORVIK_SUCCESS;
  dlclose(handle);
  const pid_t child = fork(); /* no handler of it may be left */
  if (child == 0) _exit(0);
  int status = 1;
  waitpid(child, &status, 0);
  return bad || status != 0 || !one_thread_is_left();
}

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  for (int k = 0; k < 200; ++k) {
    if (round_trip(argv[1]) != 0) {
      fprintf(stderr, "round %d failed\n", k);
      return 1;
    }
  }
  return 0;
}

/* Loading and unloading of the shared library: how long, how many threads, whether it really goes and leaves nothing.
 * Arguments: the library, the bound of its load in milliseconds (0: none). To be run with OMP_NUM_THREADS=4. */
#include <dirent.h>
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

enum { kLoads = 11, kCycles = 1000, kWarmCycles = 100, kGrowthKilobytes = 1024 };

static void fail(const char* what, const char* more) {
  fprintf(stderr, "%s: %s\n", what, more);
  exit(1);
}

static double milliseconds(void) {
  struct timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return (double)now.tv_sec * 1e3 + (double)now.tv_nsec * 1e-6;
}

static int count_threads(void) {
  int count = 0;
  DIR* directory = opendir("/proc/self/task");
  const struct dirent* entry;
  if (directory == NULL) fail("cannot read", "/proc/self/task");
  while ((entry = readdir(directory)) != NULL) count += entry->d_name[0] != '.';
  closedir(directory);
  return count;
}

static void* load(const char* library) {
  void* handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  if (handle == NULL) fail("dlopen", dlerror());
  return handle;
}

/* In a process that has never had the library. */
static double time_of_a_load(const char* library) {
  double took = 0;
  int ends[2], status;
  if (pipe(ends) != 0) fail("pipe", "failed");
  const pid_t child = fork();
  if (child == 0) {
    const int before = count_threads();
    const double start = milliseconds();
    load(library);
    took = milliseconds() - start;
    if (count_threads() != before) fail(library, "loading it started a thread");
    _exit(write(ends[1], &took, sizeof took) == (ssize_t)sizeof took ? 0 : 1);
  }
  close(ends[1]);
  const ssize_t got = read(ends[0], &took, sizeof took);
  close(ends[0]);
  waitpid(child, &status, 0);
  if (got != (ssize_t)sizeof took || status != 0) fail(library, "a load failed");
  return took;
}

static long resident_kilobytes(void) {
  long pages = 0, resident = 0;
  FILE* file = fopen("/proc/self/statm", "r");
  if (file == NULL || fscanf(file, "%ld %ld", &pages, &resident) != 2) fail("cannot read", "/proc/self/statm");
  fclose(file);
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

/* Uses what has a life cycle: a block, and the calling thread's state with its mode. */
static void cycle(const char* library) {
  void* handle = load(library);
  void* (*allocate)(uint64_t, int32_t);
  void (*deallocate)(void*);
  uint32_t (*get_mode)(void);
  *(void**)&allocate = dlsym(handle, "orvik_serv_allocate");
  *(void**)&deallocate = dlsym(handle, "orvik_serv_deallocate");
  *(void**)&get_mode = dlsym(handle, "_zymGetMode");
  if (allocate == NULL || deallocate == NULL || get_mode == NULL) fail(library, "a function is missing");
  void* block = allocate(1000, 128);
  if (block == NULL) fail(library, "no memory");
  deallocate(block);
  if ((get_mode() & 0xF) == 0) fail(library, "no mode");
  if (dlclose(handle) != 0) fail("dlclose", dlerror());
  if (dlopen(library, RTLD_NOW | RTLD_NOLOAD) != NULL) fail(library, "stays in the process after dlclose");
}

static void count_index(int32_t index, void* unused1, void* unused2, void* context) {
  (void)unused1;
  (void)unused2;
  ++((int*)context)[index];
}

/* The pool's threads outlive the loop, and must outlive the library as well. */
static void unload_after_a_loop(const char* library) {
  enum { kIndices = 64, kRounds = 3 };
  int status;
  const pid_t child = fork();
  if (child == 0) {
    int runs[kIndices] = {0};
    for (int round = 1; round <= kRounds; ++round) {
      void* handle = load(library);
      void (*(*find)(const char*))(void);
      *(void**)&find = dlsym(handle, "orvik_serv_load_thread_fun");
      if (find == NULL) fail(library, "a function is missing");
      void (*loop)(int32_t, int32_t, void*, void (*)(int32_t, void*, void*, void*)) = (void (*)(
          int32_t, int32_t, void*, void (*)(int32_t, void*, void*, void*)))find("orvik_qor_serv_threader_for");
      loop(kIndices, 0, runs, count_index);
      if (count_threads() < 4) fail(library, "a loop ran on too few threads");
      dlclose(handle);
      usleep(20000);
      for (int i = 0; i < kIndices; ++i) {
        if (runs[i] != round) fail(library, "a loop missed an index");
      }
    }
    _exit(0);
  }
  waitpid(child, &status, 0);
  if (status != 0) fail(library, "unloading after a parallel loop ended the process");
  printf("unloaded and loaded again after parallel loops\n");
}

int main(int argc, char** argv) {
  if (argc != 3) fail("arguments", "library milliseconds");
  const char* library = argv[1];
  const double bound = atof(argv[2]);

  double best = 1e9;
  for (int i = 0; i < kLoads; ++i) {
    const double took = time_of_a_load(library);
    if (took < best) best = took;
  }
  printf("load: %.2f ms (least of %d), no thread started\n", best, kLoads);
  if (bound > 0 && best >= bound) fail(library, "loads too slowly");

  unload_after_a_loop(library);

  long early = 0;
  for (int i = 0; i < kCycles; ++i) {
    if (i == kWarmCycles) early = resident_kilobytes();
    cycle(library);
  }
  const long growth = resident_kilobytes() - early;
  printf("%d loads and unloads: %ld kilobytes more than after %d\n", kCycles, growth, kWarmCycles);
  if (bound > 0 && growth > kGrowthKilobytes) fail(library, "loading and unloading leaves memory behind");
  return 0;
}

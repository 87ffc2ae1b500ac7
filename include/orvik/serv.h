/* Core services: memory, locks, environment, messages, process exit, threads.
 *
 * Every part of the library reaches the operating system through these functions, and callers may use them too:
 * blocks that the library hands out go back through orvik_serv_deallocate. */
#ifndef ORVIK_SERV_H
#define ORVIK_SERV_H

#include <stdint.h>

#include "orvik/version.h"

/* Exported also where the library itself is built with hidden visibility. */
#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* A block of at least `size` bytes whose address is a multiple of `alignment` (a power of two), or null when memory is
 * exhausted. Its contents are undefined. */
void* orvik_serv_allocate(uint64_t size, int32_t alignment);

/* Releases a block of orvik_serv_allocate. Null is accepted. */
void orvik_serv_deallocate(void* block);

/* Takes, releases the process-wide mutual exclusion that the address of `word` stands for. A word that is statically
 * zero is an open lock. Not recursive. */
void orvik_serv_lock(uint64_t* word);
void orvik_serv_unlock(uint64_t* word);

/* Copies the value of the environment variable `name` into `buffer`, cut to `size` bytes with its final NUL. Returns the
 * number of characters of the value, 0 when the variable is unset or empty. */
int32_t orvik_serv_getenv(const char* name, char* buffer, int32_t size);

/* Writes message `number` of the catalogue (748 to 773) to standard error, filled with `count` arguments: a
 * `const char*` name, an `int32_t` element index, a `double` value, as the message wants them. `level` is 1. */
void orvik_serv_print(int32_t level, int32_t number, int32_t count, ...);

/* Ends the process with `status`. */
void orvik_serv_exit(int32_t status);

/* Copies `count` bytes when `count` does not exceed `capacity` and returns 0; otherwise copies nothing and returns a
 * status that is not 0. */
int32_t orvik_serv_memcpy_s(void* destination, uint64_t capacity, const void* source, uint64_t count);

/* The threading function of that name, null for an unknown one. Cheap: asked for at each use.
 *   "orvik_qor_serv_threader_get_num_threads_limit"   int32_t (void)
 *   "orvik_qor_serv_threader_for"                     void (int32_t count, int32_t zero, void* context, body) with
 *                                                     void body(int32_t index, void*, void*, void* context) */
typedef void (*OrvikServFunction)(void);
OrvikServFunction orvik_serv_load_thread_fun(const char* name);

/* Whether the processor has the vector AES instructions (1 or 0). */
int32_t orvik_serv_cpuisicx(void);

/* Results of fewer bytes stay in the caches of this processor, where a loop reads no more than it writes; 0 where little
 * does. What a kernel that memory limits writes past the caches is not less. */
int64_t orvik_serv_kept_result_bytes(void);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif

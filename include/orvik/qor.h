/* Random number streams: generators, stream records, images, side blocks, jumps. Distributions: qor_distributions.h.
 *
 * A stream is one heap record that holds all state of one random sequence. Two streams never interfere; a stream may
 * move between threads between calls but must not be used by two at once. Results are 32-bit statuses unless said
 * otherwise: 0 for success, a negative OrvikQorStatus for failure. Arrays are the caller's and need no alignment. */
#ifndef ORVIK_QOR_H
#define ORVIK_QOR_H

#include <stdint.h>

#include "orvik/qor_distributions.h"
#include "orvik/qor_generators.h" /* ids and functions of the generators */

/* Exported also where the library itself is built with hidden visibility. */
#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {
#endif

/* Statuses of streams, generators and distributions. */
typedef enum OrvikQorStatus {
  ORVIK_QOR_OK = 0,
  ORVIK_QOR_BAD_METHOD = -2,
  ORVIK_QOR_BAD_ABSTRACT_ARGUMENT = -3, /* zero size, null buffer or callback, lower bound not below upper bound */
  ORVIK_QOR_NO_MEMORY = -4,             /* or a side block that a generator cannot do without is missing */
  ORVIK_QOR_NULL_POINTER = -5,
  ORVIK_QOR_BAD_BRNG = -1000,
  ORVIK_QOR_NO_LEAPFROG = -1002,
  ORVIK_QOR_NO_SKIPAHEAD = -1003,
  ORVIK_QOR_NO_SKIPAHEAD_EX = -1004,
  ORVIK_QOR_REG_BAD_STATE_SIZE = -1008,
  ORVIK_QOR_REG_BAD_WORD_SIZE = -1009,
  ORVIK_QOR_REG_BAD_NSEEDS = -1010,
  ORVIK_QOR_REG_BAD_NBITS = -1011,
  ORVIK_QOR_PERIOD_ELAPSED = -1012,
  ORVIK_QOR_BAD_NSTREAMS = -1013,
  ORVIK_QOR_NO_WORDS = -1014, /* the generator has no words of that many good bits */
  ORVIK_QOR_FILE_CLOSE = -1100,
  ORVIK_QOR_FILE_OPEN = -1101,
  ORVIK_QOR_FILE_WRITE = -1102,
  ORVIK_QOR_FILE_READ = -1103,
  ORVIK_QOR_FILE_BAD_FORMAT = -1110,
  ORVIK_QOR_FILE_BAD_VERSION = -1111,
  ORVIK_QOR_ABSTRACT_BAD_COUNT = -1120,
  ORVIK_QOR_ABSTRACT_NO_DATA = -1121,
  ORVIK_QOR_ABSTRACT_WRONG_TYPE = -1122,
  ORVIK_QOR_NO_RDRAND = -1130,
  ORVIK_QOR_RDRAND_FAILED = -1131,
  ORVIK_QOR_NO_AES = -1140,
  ORVIK_QOR_BAD_PROBABILITIES = -1150, /* of a multinomial distribution, or their number */
  ORVIK_QOR_NO_BLAS = -1160, /* no BLAS package was found for a triangular product */
  ORVIK_QOR_IMAGE_BAD_FORMAT = -1200,
  ORVIK_QOR_SHARED_NOT_FOUND = -3000,
  ORVIK_QOR_SHARED_TABLE_FULL = -3001
} OrvikQorStatus;

/* ---- Registry ---------------------------------------------------------------------------------------------------- */

/* Seeds or moves a stream. `method` 0: seed from `n` 32-bit words at `params`; 1: leapfrog, `n` streams, `params` the
 * 32-bit index of this one; 2: skip the unsigned 64-bit count at `params`; 3: skip a count of `n` 64-bit words at
 * `params`, least significant first. */
typedef int32_t (*OrvikQorInitStream)(uint32_t method, OrvikStream stream, int32_t n, const void* params);
/* Write `n` variates of the interval from `a` to `b`. */
typedef int32_t (*OrvikQorSBrng)(OrvikStream stream, int32_t n, float* r, float a, float b);
typedef int32_t (*OrvikQorDBrng)(OrvikStream stream, int32_t n, double* r, double a, double b);
/* Write `n` elements of WordSize bytes. */
typedef int32_t (*OrvikQorIBrng)(OrvikStream stream, int32_t n, void* r);

/* A generator: a row of the registry, and the form in which a caller registers one. */
typedef struct RegBrngRow {
  int32_t StreamStateSize; /* bytes of a stream record, its 16-byte header included */
  int32_t NSeeds;          /* 32-bit seed words that it can take in */
  int32_t IncludesZero;    /* 1 when 0 is among its integer outputs */
  int32_t WordSize;        /* bytes of an integer output: 4, 8, 16 */
  int32_t NBits;           /* significant bits of an output */
  OrvikQorInitStream InitStream; /* seeding and jumps */
  OrvikQorSBrng sBRng;           /* floats */
  OrvikQorDBrng dBRng;           /* doubles */
  OrvikQorIBrng iBRng;           /* integers */
} RegBrngRow;

/* Rows by historical id (below 0x100000) and by current id. */
extern RegBrngRow __RegBrngs[512];
extern RegBrngRow __RegBrngsNew[512];

/* The table that holds `id`; stores its row and sub-generator. Checks nothing. */
void* __qorGetBrngBaseOffset(int32_t id, uint32_t* index, uint32_t* sub);
/* 0, or -1000 when `table` has no such row or sub-generator. Rows 279 and 280 of __RegBrngs are empty but valid. */
int32_t __qorIsBrngValid(const void* table, int32_t index, int32_t sub);
/* Copies the row of `id`; -1000 for an unknown one. */
int32_t __qorGetBrngProperties(int32_t id, RegBrngRow* properties);
/* Adds a generator and returns its id, a positive number, or -1008, -1009, -1010, -1011, -5 for a bad size, word size,
 * seed count, bit count, null function; -4 when all 512 rows are taken. Not to be called by two threads at once. */
int32_t __qorRegisterBrng(const RegBrngRow* properties);
/* Number of rows of __RegBrngsNew in use. */
int32_t __qorGetNumRegBrngs(void);

/* ---- Streams ----------------------------------------------------------------------------------------------------- */

/* Creates a stream of generator `brng`, seeded from `n` 32-bit words. -1000, -4, or what the generator's seeding
 * returns; a stream whose seeding failed is handed out and is the caller's to delete. */
int32_t __qorNewStreamEx(OrvikStream* stream, int32_t brng, int32_t n, const void* params);
/* Creates a stream whose state is left unset. `table`, `index`, `sub` as __qorGetBrngBaseOffset gives them. */
int32_t __qorAllocateStream(OrvikStream* stream, const void* table, int32_t brng, int32_t index, int32_t sub);

/* Refills a caller's ring: writes at least `*wanted` and at most `*room` elements at index `*position` on, wrapping at
 * `*size`, and returns how many. */
typedef int32_t (*OrvikQorIRefill)(OrvikStream stream, int32_t* size, uint32_t* buffer, int32_t* wanted, int32_t* room,
                                   int32_t* position);
typedef int32_t (*OrvikQorDRefill)(OrvikStream stream, int32_t* size, double* buffer, int32_t* wanted, int32_t* room,
                                   int32_t* position);
typedef int32_t (*OrvikQorSRefill)(OrvikStream stream, int32_t* size, float* buffer, int32_t* wanted, int32_t* room,
                                   int32_t* position);
/* Streams over a caller's ring of `n` elements, with values of the interval from `a` to `b` for the d and s forms.
 * -3 for a bad argument. */
int32_t __qoriNewAbstractStream(OrvikStream* stream, int32_t n, const uint32_t* ibuf, OrvikQorIRefill ibrng);
int32_t __qordNewAbstractStream(OrvikStream* stream, int32_t n, const double* dbuf, double a, double b,
                                OrvikQorDRefill dbrng);
int32_t __qorsNewAbstractStream(OrvikStream* stream, int32_t n, const float* sbuf, float a, float b,
                                OrvikQorSRefill sbrng);

/* Releases a stream with its side blocks and clears the caller's pointer. */
int32_t __qorDeleteStream(OrvikStream* stream);
/* An independent copy. */
int32_t __qorCopyStream(OrvikStream* stream, OrvikStream source);
/* Overwrites `destination`, a stream of the same generator. */
int32_t __qorCopyStreamState(OrvikStream destination, OrvikStream source);
/* The id that the stream was made with. */
int32_t __qorGetStreamStateBrng(OrvikStream stream);
/* Bytes of the stream's image; -4 when they are more than 2^31 - 1, an image that a file alone can hold. */
int32_t __qorGetStreamSize(OrvikStream stream);

/* 1 when the processor has AES, hardware random numbers, vector AES, else 0. */
int32_t __qorCPUisAES(void);
int32_t __qorCPUisRDRAND(void);
int32_t __qorCPUisVAES(void);

/* ---- Images ------------------------------------------------------------------------------------------------------ */

/* Write and read a stream with its side blocks. `length` is the number of characters of `name`, or negative when the
 * name ends in a NUL. After a failed load the pointer is null. -4, -1100 to -1103, -1110, -1111, -1130, -1140. */
int32_t __qorSaveStreamF(OrvikStream stream, const char* name, int32_t length);
int32_t __qorLoadStreamF(OrvikStream* stream, const char* name, int32_t length);
/* The same in a block of at least __qorGetStreamSize(stream) bytes. A load trusts the block to be whole. -1200 and the
 * statuses of a file but for those of file access. */
int32_t __qorSaveStreamM(OrvikStream stream, void* memory);
int32_t __qorLoadStreamM(OrvikStream* stream, const void* memory);

/* ---- Jumps ------------------------------------------------------------------------------------------------------- */

/* Leaves the stream with members k, k + nstreams, k + 2 nstreams ... of its sequence. -1013, -1002. */
int32_t __qorLeapfrogStream(OrvikStream stream, int32_t k, int32_t nstreams);
/* Moves the stream `nskip` members on. -1003. */
int32_t __qorSkipAheadStream(OrvikStream stream, uint64_t nskip);
/* The same for a count of `n` words, nskip[0] + nskip[1] 2^64 + ... -1004. */
int32_t __qorSkipAheadStreamEx(OrvikStream stream, int32_t n, const uint64_t* nskip);

/* a^n modulo m, 2^31 - 1, 2^59. m is at least 1. */
uint32_t __qoriPowMod(uint32_t a, uint64_t n, uint32_t m);
uint32_t __qoriPowMod2P31M1(uint32_t a, uint64_t n);
uint64_t __qoriPowMod2P59(uint64_t a, uint64_t n);
/* Move the last three members `v` of a third-order recurrence, oldest first, by `n` steps; `c` are the coefficients of
 * the newest, middle and oldest member. The array forms take a count of `words` 64-bit words. _M1 and _M2 work modulo
 * 2^32 - 209 and 2^32 - 22853 with at most three words and 193 matrices `powers`, the 2^i-th powers row by row. */
int32_t __qoriVect3PowMod(uint32_t* v, const uint32_t* c, uint32_t m, uint64_t n);
int32_t __qoriVect3PowArrayMod(uint32_t* v, const uint32_t* c, uint32_t m, int32_t words, const uint64_t* n);
int32_t __qoriVect3PowArrayMod_M1(uint32_t* v, int32_t words, const uint64_t* n, const uint32_t* powers);
int32_t __qoriVect3PowArrayMod_M2(uint32_t* v, int32_t words, const uint64_t* n, const uint32_t* powers);

/* x^n modulo a polynomial over GF(2) that is given by the sorted exponents of its terms. Bit i of `out`, `outwords`
 * 32-bit words, is the coefficient of x^i. -4. */
int32_t __qorPolyRem(uint64_t n, uint64_t degree, uint32_t nterms, const uint32_t* terms, int32_t outwords,
                     uint32_t* out);

/* What a jump asks of a generator, over work states of its size: make a state zero, add one to another (exclusive or), copy
 * one, move one a step on; store the work state as the stream's, at `offset`; do what needs no polynomial, give `offset` and
 * the steps that are left in `count`, and return 0 when none are. */
typedef void (*OrvikQorJumpClear)(void* state);
typedef void (*OrvikQorJumpAdd)(void* target, const void* source);
typedef void (*OrvikQorJumpCopy)(void* target, const void* source);
typedef void (*OrvikQorJumpStep)(void* state);
typedef void (*OrvikQorJumpStore)(void* stream, void* state, int32_t offset);
typedef int32_t (*OrvikQorJumpStart)(void* stream, uint64_t* count, int32_t* offset);
/* Jump a generator that is linear over GF(2): its characteristic polynomial applied to the step, by Horner's rule and
 * by a sliding window of eight bits. `words` 64-bit words hold a remainder, `statesize` bytes a work state. -4. */
int32_t __qor_SkipAheadHorner(void* state, OrvikQorJumpClear clear, OrvikQorJumpAdd add, OrvikQorJumpCopy copy,
                              OrvikQorJumpStep step, OrvikQorJumpStore store, OrvikQorJumpStart start, uint64_t nskip,
                              int64_t words, int64_t degree, int64_t statesize, int64_t nterms, const uint32_t* terms);
int32_t __qor_SkipAheadSWin(void* state, OrvikQorJumpClear clear, OrvikQorJumpAdd add, OrvikQorJumpCopy copy,
                            OrvikQorJumpStep step, OrvikQorJumpStore store, OrvikQorJumpStart start, uint64_t nskip,
                            int64_t words, int64_t degree, int64_t statesize, int64_t nterms, const uint32_t* terms);

/* ---- Side blocks ------------------------------------------------------------------------------------------------- */

/* Hangs `data` (of orvik_serv_allocate, `size` bytes) on the stream under `id`. A non-zero `key` of two words shares
 * one block among all chunks of that key: when the key is known already, the chunk refers to the shared block and
 * `data` stays the caller's. -4. */
int32_t __qorAddChunk(OrvikStream stream, int32_t id, const uint64_t* key, void* data, uint32_t size);
/* The data of the first chunk of that id, null for none. */
void* __qorSearchChunk(OrvikStream stream, uint32_t id);
int32_t __qorGetNumChunks(OrvikStream stream);
/* Releases the chunks of one id. Of the others the stream keeps those from the last one in the list on: chunks that were
 * added after it (they stand before it in the list) are lost to the stream and not released. For streams that hold at
 * most one chunk besides those of that id. */
int32_t __qorDeleteChunksById(OrvikStream stream, uint32_t id);
/* Releases all chunks. */
int32_t __qorDeleteChunks(OrvikStream stream);
/* Adds copies of the source's chunks. After a failure the destination has no chunks. */
int32_t __qorCopyChunks(OrvikStream destination, OrvikStream source);

/* An entry of the process-wide table of shared read-only blocks. */
typedef struct OrvikSharedEntry {
  uint64_t Key[2];   /* the name that holders know it by */
  uint32_t RefCount; /* holders of the block */
  void* Data;        /* the block */
} OrvikSharedEntry;

/* Finds an entry; -3000. */
int32_t __qorFindGlobRODataTableEntry(OrvikSharedEntry** entry, const uint64_t* key);
/* Adds an entry with one reference; -3001 when there are 128. */
int32_t __qorCreateGlobRODataTableEntry(OrvikSharedEntry** entry, const uint64_t* key, void* data);
/* A chunk, and whatever else holds a reference: the block stands where a chunk keeps its data, at offset 8. */
typedef struct OrvikSharedHolder {
  uint32_t Id;  /* of the chunk */
  int32_t Size; /* bytes */
  void* Data;   /* the block */
} OrvikSharedHolder;
/* Takes, gives back a reference. The last one releases the block. An unknown key changes nothing. */
void __qorRegisterGlobRODataReference(void* holder, const uint64_t* key);
void __qorUnregisterGlobRODataReference(const uint64_t* key);
/* Makes a key that is not in the table, with `tag` as its second half. */
void __qorGenerateNewGlobalRODataTableEntryId(uint64_t* key, uint64_t tag);

#ifdef __cplusplus
}
#endif

#pragma GCC visibility pop

#endif

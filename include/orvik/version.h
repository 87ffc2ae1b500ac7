/* Version of the library, and whether the processor serves it. */
#ifndef ORVIK_VERSION_H
#define ORVIK_VERSION_H

#include <stdint.h>

/* The one place where the version stands: build, package and pkg-config file read it here. */
#define ORVIK_VERSION_MAJOR 2
#define ORVIK_VERSION_MINOR 0
#define ORVIK_VERSION_PATCH 0

/* The same as a text, such as "2.0.0". */
#define ORVIK_VERSION_TEXT_OF_(x) #x
#define ORVIK_VERSION_TEXT_(a, b, c) ORVIK_VERSION_TEXT_OF_(a) "." ORVIK_VERSION_TEXT_OF_(b) "." ORVIK_VERSION_TEXT_OF_(c)
#define ORVIK_VERSION_STRING ORVIK_VERSION_TEXT_(ORVIK_VERSION_MAJOR, ORVIK_VERSION_MINOR, ORVIK_VERSION_PATCH)

/* Exported also where the library itself is built with hidden visibility. */
#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* 1 where the processor has AVX2, FMA and what comes with them (BMI1, BMI2, LZCNT, POPCNT) and the operating system saves
 * the AVX state, else 0. This function and the next run on every x86-64 processor. On one that lacks anything the library says so
 * in one line on standard error when it is loaded and leaves the process alone: any other call may end in an illegal
 * instruction, so ask first where that can happen. */
int32_t orvik_cpu_supported(void);

/* Bits of the registers that the vector functions use: 512 where processor and operating system have them and the
 * environment variable ORVIK_REGISTERS is not 256 when the library is loaded, else 256. Results are the same. */
int32_t orvik_register_bits(void);

/* ORVIK_VERSION_STRING of the library that is loaded, such as "2.0.0". Runs on every x86-64 processor as well. */
const char* orvik_version(void);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif

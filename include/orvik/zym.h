/* Vector mathematics: the per-thread state (mode word, error status, error callback) and the vector functions. */
#ifndef ORVIK_ZYM_H
#define ORVIK_ZYM_H

#include "orvik/zym_functions.h"
#include "orvik/zym_types.h"

/* Exported also where the library itself is built with hidden visibility. */
#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* The calling thread's mode word. Its first read takes the environment variable ORVIK_ZYM_MODE, a list such as
 * "ZYM_EP,ZYM_ERRMODE_STDERR" without blanks; a faulty value counts as absent. The default is 0x1A02. */
uint32_t _zymGetMode(void);
uint32_t orvik_zym_kernel_GetMode(void);

/* Merges `mode` field by field (accuracy, error handling, denormals, traps, reserved): a field that is zero in `mode`
 * keeps its value. Returns the previous mode. */
uint32_t _zymSetMode(uint32_t mode);
uint32_t orvik_zym_kernel_SetMode(uint32_t mode);

/* Index of the mode's level in a dispatch table row: of the thread's mode, of the given mode. */
int32_t orvik_zym_kernel_GetTTableIndex(void);
int32_t orvik_zym_kernel_GetTTableIndexM(uint32_t unused, uint32_t mode);

/* The code of the last reported element of this thread, 0 if none. Setting and clearing return the previous one. */
int32_t _zymGetErrStatus(void);
int32_t orvik_zym_kernel_GetErrStatus(void);
int32_t _zymSetErrStatus(int32_t status);
int32_t orvik_zym_kernel_SetErrStatus(int32_t status);
int32_t _zymClearErrStatus(void);
int32_t orvik_zym_kernel_ClearErrStatus(void);

/* The thread's error callback. Setting one also sets ZYM_ERRMODE_CALLBACK in the mode, setting null or clearing takes it
 * out (unless it is the only bit of its field, which then stays). Both return the previous callback. */
ZymErrorCallback _zymGetErrorCallBack(void);
ZymErrorCallback orvik_zym_kernel_GetErrorCallBack(void);
ZymErrorCallback _zymSetErrorCallBack(ZymErrorCallback callback);
ZymErrorCallback orvik_zym_kernel_SetErrorCallBack(ZymErrorCallback callback);
ZymErrorCallback _zymClearErrorCallBack(void);
ZymErrorCallback orvik_zym_kernel_ClearErrorCallBack(void);

/* Start of the whole input vector of which the next calls see blocks: the index of a report is shifted by the distance
 * from it, in elements. Null: no shift. Returns its argument. */
const void* _zymSetInterfInputVectorPointer(const void* vector);
const void* orvik_zym_kernel_SetInterfInputVectorPointer(const void* vector);

/* Code of the processor level that the kernels are built for: 7. */
int32_t dll_cpu_version(void);

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

#endif

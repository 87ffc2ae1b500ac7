#include "zym/frame/thread_state.h"

#include <utility>

#include "orvik/zym.h"
#include "zym/frame/mode.h"

namespace orvik::zym {

constinit thread_local ThreadBlock thread_block = {};

namespace {

ZymErrorCallback store_callback(ZymErrorCallback callback) {
  return std::exchange(thread_block.errorCallback, callback);
}

}  // namespace
}  // namespace orvik::zym

using namespace orvik::zym;

extern "C" {

int32_t _zymGetErrStatus() { return thread_block.errorStatus; }
int32_t _zymSetErrStatus(int32_t status) { return std::exchange(thread_block.errorStatus, status); }
int32_t _zymClearErrStatus() { return _zymSetErrStatus(0); }

ZymErrorCallback _zymGetErrorCallBack() { return thread_block.errorCallback; }

ZymErrorCallback _zymSetErrorCallBack(ZymErrorCallback callback) {
  const ZymErrorCallback previous = store_callback(callback);
  const uint32_t others = current_mode() & ~uint32_t{ZYM_ERRMODE_CALLBACK};
  merge_mode(callback != nullptr ? others | ZYM_ERRMODE_CALLBACK : others);
  return previous;
}

ZymErrorCallback _zymClearErrorCallBack() { return _zymSetErrorCallBack(nullptr); }

const void* _zymSetInterfInputVectorPointer(const void* vector) { return thread_block.inputVectorPointer = vector; }

int32_t dll_cpu_version() { return 7; }

int32_t orvik_zym_kernel_GetErrStatus() __attribute__((alias("_zymGetErrStatus")));
int32_t orvik_zym_kernel_SetErrStatus(int32_t) __attribute__((alias("_zymSetErrStatus")));
int32_t orvik_zym_kernel_ClearErrStatus() __attribute__((alias("_zymClearErrStatus")));
ZymErrorCallback orvik_zym_kernel_GetErrorCallBack() __attribute__((alias("_zymGetErrorCallBack")));
ZymErrorCallback orvik_zym_kernel_SetErrorCallBack(ZymErrorCallback) __attribute__((alias("_zymSetErrorCallBack")));
ZymErrorCallback orvik_zym_kernel_ClearErrorCallBack() __attribute__((alias("_zymClearErrorCallBack")));
const void* orvik_zym_kernel_SetInterfInputVectorPointer(const void*)
    __attribute__((alias("_zymSetInterfInputVectorPointer")));
}

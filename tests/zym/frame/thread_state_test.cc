// The per-thread block: status, callback, vector start.
#include <gtest/gtest.h>

#include "orvik/zym.h"
#include "support/thread.h"
#include "zym/frame/thread_state.h"

namespace orvik::zym {
namespace {

using test::on_fresh_thread;

int32_t some_callback(ZymErrorContext*) { return 0; }

TEST(ThreadState, SettingTheStatusOnlyLeavesTheModeToItsNextRead) {
  on_fresh_thread([] {
    EXPECT_EQ(_zymSetErrStatus(3), 0);
    EXPECT_EQ(thread_block.mode, 0u);
    EXPECT_EQ(_zymGetMode(), 0x1A02u);
    EXPECT_EQ(thread_block.mode, 0x1A02u);
    EXPECT_EQ(_zymGetErrStatus(), 3);
  });
}

TEST(ThreadState, StatusCallsReturnThePreviousOne) {
  on_fresh_thread([] {
    EXPECT_EQ(_zymSetErrStatus(4), 0);
    EXPECT_EQ(orvik_zym_kernel_SetErrStatus(2), 4);
    EXPECT_EQ(orvik_zym_kernel_GetErrStatus(), 2);
    EXPECT_EQ(_zymClearErrStatus(), 2);
    EXPECT_EQ(orvik_zym_kernel_ClearErrStatus(), 0);
  });
}

TEST(ThreadState, CallbackSetsAndClearsItsModeBit) {
  on_fresh_thread([] {
    _zymSetMode(0x600);
    EXPECT_EQ(_zymSetErrorCallBack(some_callback), nullptr);
    EXPECT_EQ(_zymGetMode(), 0x1602u);
    EXPECT_EQ(_zymGetErrorCallBack(), &some_callback);
    EXPECT_EQ(_zymSetErrorCallBack(nullptr), &some_callback);
    EXPECT_EQ(_zymGetMode(), 0x602u);
    orvik_zym_kernel_SetErrorCallBack(some_callback);
    EXPECT_EQ(orvik_zym_kernel_ClearErrorCallBack(), &some_callback);
    EXPECT_EQ(orvik_zym_kernel_GetErrorCallBack(), nullptr);
    EXPECT_EQ(_zymGetMode(), 0x602u);
  });
}

TEST(ThreadState, NullCallbackLeavesTheBitWhereItIsTheOnlyOne) {
  on_fresh_thread([] {
    _zymSetMode(ZYM_ERRMODE_CALLBACK);
    _zymSetErrorCallBack(some_callback);
    _zymSetErrorCallBack(nullptr);
    EXPECT_EQ(_zymGetMode(), 0x1002u);
    EXPECT_EQ(_zymGetErrorCallBack(), nullptr);
    const float limit = 3.4028235e38f;
    const float infinite = __builtin_inff();
    float r = 0;
    _zymsNextAfter(1, &limit, &infinite, &r);  // reports, finds no callback
    EXPECT_EQ(_zymGetErrStatus(), zymErrorOverflow);
    EXPECT_EQ(r, infinite);
  });
}

TEST(ThreadState, VectorPointerIsStoredAndReturned) {
  on_fresh_thread([] {
    const double x = 0;
    EXPECT_EQ(_zymSetInterfInputVectorPointer(&x), &x);
    EXPECT_EQ(thread_block.inputVectorPointer, &x);
    EXPECT_EQ(orvik_zym_kernel_SetInterfInputVectorPointer(nullptr), nullptr);
    EXPECT_EQ(thread_block.inputVectorPointer, nullptr);
  });
}

TEST(ThreadState, BelongsToItsThread) {
  on_fresh_thread([] {
    _zymSetErrStatus(1);
    _zymSetMode(ZYM_EP);
    on_fresh_thread([] {
      EXPECT_EQ(_zymGetErrStatus(), 0);
      EXPECT_EQ(_zymGetMode(), 0x1A02u);
    });
    EXPECT_EQ(_zymGetErrStatus(), 1);
    EXPECT_EQ(_zymGetMode(), 0x1A03u);
  });
}

TEST(ThreadState, ProcessorLevelIsSeven) { EXPECT_EQ(dll_cpu_version(), 7); }

}  // namespace
}  // namespace orvik::zym

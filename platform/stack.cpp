#include "platform/memory.h"

namespace platform {
namespace {

// Ciphers of the system leave their last blocks there, for whoever saves the registers next.
void ClearVectorRegisters() noexcept {
#ifdef __x86_64__
    asm volatile(
        "xorps %%xmm0, %%xmm0\n xorps %%xmm1, %%xmm1\n xorps %%xmm2, %%xmm2\n xorps %%xmm3, %%xmm3\n"
        "xorps %%xmm4, %%xmm4\n xorps %%xmm5, %%xmm5\n xorps %%xmm6, %%xmm6\n xorps %%xmm7, %%xmm7\n"
        "xorps %%xmm8, %%xmm8\n xorps %%xmm9, %%xmm9\n xorps %%xmm10, %%xmm10\n xorps %%xmm11, %%xmm11\n"
        "xorps %%xmm12, %%xmm12\n xorps %%xmm13, %%xmm13\n xorps %%xmm14, %%xmm14\n xorps %%xmm15, "
        "%%xmm15\n" ::
            : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "xmm8", "xmm9", "xmm10",
              "xmm11", "xmm12", "xmm13", "xmm14", "xmm15");
#endif
}

}  // namespace

[[gnu::noinline]] void WipeStack() noexcept {
    u8 below[0x4000];
    WipeMemory(below, sizeof below);
    ClearVectorRegisters();
}

}  // namespace platform

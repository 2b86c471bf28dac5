#include "platform/system/linux/late_binding.h"

#include <dlfcn.h>
#include <stdexcept>

void* BindLateFunction(std::uint32_t index)
{
    const Platform::LateFunction& function = kLateFunctions[index];
    // A library that is loaded already is only counted once more.
    void* const library = dlopen(function.library, RTLD_LAZY);
    void* const address = library != nullptr ? dlsym(library, function.name) : nullptr;
    if (address == nullptr)
        throw std::runtime_error(dlerror());
    gLateAddresses[index].store(address, std::memory_order_release);
    return address;
}

// CallLateFunction: a stub's index in r11, all else as its caller left it for the function. Keeps
// the registers that arguments come in, has the function bound, and goes on to it.
asm(R"(
    .text
    .globl CallLateFunction
    .hidden CallLateFunction
    .type CallLateFunction, @function
CallLateFunction:
    .cfi_startproc
    endbr64
    subq $184, %rsp
    .cfi_adjust_cfa_offset 184
    movq %rdi, 128(%rsp)
    movq %rsi, 136(%rsp)
    movq %rdx, 144(%rsp)
    movq %rcx, 152(%rsp)
    movq %r8, 160(%rsp)
    movq %r9, 168(%rsp)
    movq %rax, 176(%rsp)
    movaps %xmm0, (%rsp)
    movaps %xmm1, 16(%rsp)
    movaps %xmm2, 32(%rsp)
    movaps %xmm3, 48(%rsp)
    movaps %xmm4, 64(%rsp)
    movaps %xmm5, 80(%rsp)
    movaps %xmm6, 96(%rsp)
    movaps %xmm7, 112(%rsp)
    movl %r11d, %edi
    call BindLateFunction
    movq %rax, %r11
    movq 128(%rsp), %rdi
    movq 136(%rsp), %rsi
    movq 144(%rsp), %rdx
    movq 152(%rsp), %rcx
    movq 160(%rsp), %r8
    movq 168(%rsp), %r9
    movq 176(%rsp), %rax
    movaps (%rsp), %xmm0
    movaps 16(%rsp), %xmm1
    movaps 32(%rsp), %xmm2
    movaps 48(%rsp), %xmm3
    movaps 64(%rsp), %xmm4
    movaps 80(%rsp), %xmm5
    movaps 96(%rsp), %xmm6
    movaps 112(%rsp), %xmm7
    addq $184, %rsp
    .cfi_adjust_cfa_offset -184
    jmp *%r11
    .cfi_endproc
    .size CallLateFunction, . - CallLateFunction
)");

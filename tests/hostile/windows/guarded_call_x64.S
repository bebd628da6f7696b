# guarded_call for 64 bits; see guarded_call.hpp.
        .data
own_stack:      .quad 0
own_floating:   .space 32
        .text
        .globl guarded_call, guarded_way_out
guarded_call:
        pushq   %rbx
        pushq   %rbp
        pushq   %rsi
        pushq   %rdi
        pushq   %r12
        pushq   %r13
        pushq   %r14
        pushq   %r15
        subq    $168, %rsp
        movups  %xmm6, 0(%rsp)
        movups  %xmm7, 16(%rsp)
        movups  %xmm8, 32(%rsp)
        movups  %xmm9, 48(%rsp)
        movups  %xmm10, 64(%rsp)
        movups  %xmm11, 80(%rsp)
        movups  %xmm12, 96(%rsp)
        movups  %xmm13, 112(%rsp)
        movups  %xmm14, 128(%rsp)
        movups  %xmm15, 144(%rsp)
        movq    %rsp, own_stack(%rip)
        fnstenv own_floating(%rip)
        stmxcsr own_floating+28(%rip)

        andq    $-16, %rsp
        subq    $256, %rsp
        leaq    guarded_words(%rip), %rsi
        movq    %rsp, %rdi
        movl    $32, %ecx
        cld
        rep movsq
        movq    %rsp, guarded_stack_before(%rip)
        # The first four words may be numbers of either kind.
        movq    0(%rsp), %rcx
        movq    0(%rsp), %xmm0
        movq    8(%rsp), %rdx
        movq    8(%rsp), %xmm1
        movq    16(%rsp), %r8
        movq    16(%rsp), %xmm2
        movq    24(%rsp), %r9
        movq    24(%rsp), %xmm3

        movups  guarded_vectors+0(%rip), %xmm6
        movups  guarded_vectors+16(%rip), %xmm7
        movups  guarded_vectors+32(%rip), %xmm8
        movups  guarded_vectors+48(%rip), %xmm9
        movups  guarded_vectors+64(%rip), %xmm10
        movups  guarded_vectors+80(%rip), %xmm11
        movups  guarded_vectors+96(%rip), %xmm12
        movups  guarded_vectors+112(%rip), %xmm13
        movups  guarded_vectors+128(%rip), %xmm14
        movups  guarded_vectors+144(%rip), %xmm15
        movq    guarded_registers+0(%rip), %rbx
        movq    guarded_registers+8(%rip), %rbp
        movq    guarded_registers+16(%rip), %rsi
        movq    guarded_registers+24(%rip), %rdi
        movq    guarded_registers+32(%rip), %r12
        movq    guarded_registers+40(%rip), %r13
        movq    guarded_registers+48(%rip), %r14
        movq    guarded_registers+56(%rip), %r15
        fldenv  guarded_floating(%rip)
        ldmxcsr guarded_floating+28(%rip)
        call    *guarded_function(%rip)

        movq    %rax, guarded_result(%rip)
        movq    %rsp, guarded_stack_after(%rip)
        movq    %rbx, guarded_registers_after+0(%rip)
        movq    %rbp, guarded_registers_after+8(%rip)
        movq    %rsi, guarded_registers_after+16(%rip)
        movq    %rdi, guarded_registers_after+24(%rip)
        movq    %r12, guarded_registers_after+32(%rip)
        movq    %r13, guarded_registers_after+40(%rip)
        movq    %r14, guarded_registers_after+48(%rip)
        movq    %r15, guarded_registers_after+56(%rip)
        movups  %xmm6, guarded_vectors_after+0(%rip)
        movups  %xmm7, guarded_vectors_after+16(%rip)
        movups  %xmm8, guarded_vectors_after+32(%rip)
        movups  %xmm9, guarded_vectors_after+48(%rip)
        movups  %xmm10, guarded_vectors_after+64(%rip)
        movups  %xmm11, guarded_vectors_after+80(%rip)
        movups  %xmm12, guarded_vectors_after+96(%rip)
        movups  %xmm13, guarded_vectors_after+112(%rip)
        movups  %xmm14, guarded_vectors_after+128(%rip)
        movups  %xmm15, guarded_vectors_after+144(%rip)
        fnstenv guarded_floating_after(%rip)
        stmxcsr guarded_floating_after+28(%rip)
        pushfq
        popq    guarded_flags_after(%rip)
guarded_way_out:
        cld
        fnclex
        movq    own_stack(%rip), %rsp
        fldenv  own_floating(%rip)
        ldmxcsr own_floating+28(%rip)
        movups  0(%rsp), %xmm6
        movups  16(%rsp), %xmm7
        movups  32(%rsp), %xmm8
        movups  48(%rsp), %xmm9
        movups  64(%rsp), %xmm10
        movups  80(%rsp), %xmm11
        movups  96(%rsp), %xmm12
        movups  112(%rsp), %xmm13
        movups  128(%rsp), %xmm14
        movups  144(%rsp), %xmm15
        addq    $168, %rsp
        popq    %r15
        popq    %r14
        popq    %r13
        popq    %r12
        popq    %rdi
        popq    %rsi
        popq    %rbp
        popq    %rbx
        ret

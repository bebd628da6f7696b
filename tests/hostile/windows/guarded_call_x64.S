# guarded_call for 64 bits; see guarded_call.hpp.

# To or from a table: the registers that belong to the caller, and the vectors that do.
        .macro  load_registers table
        .set    place, 0
        .irp    name, rbx, rbp, rsi, rdi, r12, r13, r14, r15
        movq    \table + place(%rip), %\name
        .set    place, place + 8
        .endr
        .endm
        .macro  store_registers table
        .set    place, 0
        .irp    name, rbx, rbp, rsi, rdi, r12, r13, r14, r15
        movq    %\name, \table + place(%rip)
        .set    place, place + 8
        .endr
        .endm
        .macro  load_vectors table
        .set    place, 0
        .irp    number, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15
        movups  \table + place(%rip), %xmm\number
        .set    place, place + 16
        .endr
        .endm
        .macro  store_vectors table
        .set    place, 0
        .irp    number, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15
        movups  %xmm\number, \table + place(%rip)
        .set    place, place + 16
        .endr
        .endm

        .data
own_stack:      .quad 0
own_registers:  .space 64
own_vectors:    .space 160
own_floating:   .space 32
        .text
        .globl guarded_call, guarded_way_out
guarded_call:
        store_registers own_registers
        store_vectors own_vectors
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

        load_vectors guarded_vectors
        load_registers guarded_registers
        fldenv  guarded_floating(%rip)
        ldmxcsr guarded_floating+28(%rip)
        call    *guarded_function(%rip)

        movq    %rax, guarded_result(%rip)
        movq    %rsp, guarded_stack_after(%rip)
        store_registers guarded_registers_after
        store_vectors guarded_vectors_after
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
        load_vectors own_vectors
        load_registers own_registers
        ret

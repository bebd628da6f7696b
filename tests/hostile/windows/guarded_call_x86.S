# guarded_call for 32 bits; see guarded_call.hpp.
        .data
own_stack:      .long 0
own_floating:   .space 32
        .text
        .globl _guarded_call, _guarded_way_out
_guarded_call:
        pushl   %ebp
        pushl   %ebx
        pushl   %esi
        pushl   %edi
        movl    %esp, own_stack
        fnstenv own_floating
        stmxcsr own_floating+28

        andl    $-16, %esp
        subl    _guarded_misalignment, %esp
        movl    _guarded_count, %ecx
next_word:
        jecxz   words_pushed
        pushl   _guarded_words-4(,%ecx,4)
        decl    %ecx
        jmp     next_word
words_pushed:
        movl    %esp, _guarded_stack_before

        movl    _guarded_registers, %ebx
        movl    _guarded_registers+4, %esi
        movl    _guarded_registers+8, %edi
        movl    _guarded_registers+12, %ebp
        fldenv  _guarded_floating
        ldmxcsr _guarded_floating+28
        call    *_guarded_function

        movl    %eax, _guarded_result
        movl    %esp, _guarded_stack_after
        movl    %ebx, _guarded_registers_after
        movl    %esi, _guarded_registers_after+4
        movl    %edi, _guarded_registers_after+8
        movl    %ebp, _guarded_registers_after+12
        fnstenv _guarded_floating_after
        stmxcsr _guarded_floating_after+28
        pushfl
        popl    _guarded_flags_after
_guarded_way_out:
        cld
        fnclex
        movl    own_stack, %esp
        fldenv  own_floating
        ldmxcsr own_floating+28
        popl    %edi
        popl    %esi
        popl    %ebx
        popl    %ebp
        ret

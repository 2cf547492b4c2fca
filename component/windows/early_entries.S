// The entries of default interfaces behind those of IDispatch. Each tells its place to one function, which finds the
// member; so all classes share them. On x86-64 an entry gets the object and three arguments in registers, each of which
// has a place on the stack in front of the further ones; those that are doubles come in registers of their own.

  .text
  .globl zef_early_entries
  .p2align 4
zef_early_entries:
  .set place, 0
  .rept 256
  movl $place, %eax
  jmp zef_early_entry
  .p2align 4
  .set place, place + 1
  .endr

  .def zef_early_entry; .scl 3; .type 32; .endef
  .seh_proc zef_early_entry
zef_early_entry:
  movq %rcx, 8(%rsp)
  movq %rdx, 16(%rsp)
  movq %r8, 24(%rsp)
  movq %r9, 32(%rsp)
  subq $72, %rsp
  .seh_stackalloc 72
  .seh_endprologue
  movsd %xmm1, 40(%rsp)
  movsd %xmm2, 48(%rsp)
  movsd %xmm3, 56(%rsp)
  movl %eax, %ecx
  leaq 80(%rsp), %rdx
  leaq 40(%rsp), %r8
  call zef_early_call
  addq $72, %rsp
  ret
  .seh_endproc

/* The resources of a program that has no resource section: bytes between two symbols. */
    .section .rodata
    .balign 2
    .globl vaultmere_english_ini_begin
    .globl vaultmere_english_ini_end
vaultmere_english_ini_begin:
    .incbin "english.ini"
vaultmere_english_ini_end:
    .byte 0
    .section .note.GNU-stack,"",%progbits

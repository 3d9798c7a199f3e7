# What every target of the project is compiled and linked with.
add_library(vaultmere_options INTERFACE)
target_compile_options(vaultmere_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

if(VAULTMERE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(VAULTMERE_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()

if(WIN32)
  # One file each: nothing of the compiler's has to lie beside the program.
  add_link_options(-static -static-libgcc -static-libstdc++)
  # Memory that is written is not run, and stands at another address each time; a stack that is written over ends the
  # program.
  add_compile_options(-fstack-protector-strong)
  add_link_options(-fstack-protector-strong -Wl,--nxcompat -Wl,--dynamicbase)
  # The same sources give the same bytes, wherever and whenever they are built.
  add_compile_options(-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=)
  add_link_options(-Wl,--no-insert-timestamp)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(-Wl,--high-entropy-va)
  endif()
else()
  # Functions are found when the program starts. The dynamic linker would otherwise save the vector registers,
  # with what a text or a key has left in them, on the stack at each first call.
  add_link_options(-Wl,-z,relro,-z,now)
  find_package(OpenSSL REQUIRED COMPONENTS Crypto)
  find_package(ICU REQUIRED COMPONENTS uc i18n)
  set(VAULTMERE_CRYPTO OpenSSL::Crypto)
  set(VAULTMERE_ICU ICU::i18n ICU::uc)
endif()

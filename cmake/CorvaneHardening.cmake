# The hardening flags that distributions require of packaged programs: stack and return address protection, checked
# calls of the C library, position-independent executables, and relocations that are read-only before main() begins.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Undefine it first, because some compilers define the level themselves.
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wformat -Wformat-security)
# The last two each apply to one processor architecture.
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection -mbranch-protection=standard)
  string(MAKE_C_IDENTIFIER "CORVANE_HAS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    add_compile_options(${flag})
  endif()
endforeach()
check_linker_flag(CXX "LINKER:-z,relro,-z,now" CORVANE_HAS_RELRO)
if(CORVANE_HAS_RELRO)
  add_link_options("LINKER:-z,relro,-z,now")
endif()

# What distributions ask of the programs that they ship: guards against overwritten stacks and return addresses, checked
# calls of the C library, addresses that differ in every run, and tables that are read-only before main() begins.
include(CheckCXXCompilerFlag)
include(CheckLinkerFlag)
include(CheckPIESupported)

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Some compilers define the level themselves.
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -Wformat -Wformat-security)
# The last two are for one processor each.
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

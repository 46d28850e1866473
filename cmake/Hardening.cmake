# What is shipped is hard to take over: a read-only table of bindings that are all made at the start, canaries
# on the stack, checked calls of the C library, programs at random addresses.
#
# The checks of the C library need optimisation, and the sanitizers bring their own.
if(NOT AUDIOANALYZER_SANITIZERS)
  include(CheckPIESupported)
  check_pie_supported()
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  add_compile_options(-fstack-protector-strong)
  add_link_options(LINKER:-z,relro LINKER:-z,now)
  # Distributions may set it to another level.
  set(fortify -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  string(TOUPPER "${CMAKE_BUILD_TYPE}" build_type)
  if("${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${build_type}}" MATCHES "-O[1-3sz]")
    set(AUDIOANALYZER_IS_FORTIFIED ON)
    add_compile_options(${fortify})
  endif()
endif()

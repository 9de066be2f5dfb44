# Compile options of the project's own targets. Clients get none of them.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(qor_settings INTERFACE)
# Results must be the same bits on every platform: no fused multiply-add, and no x87 arithmetic.
target_compile_options(qor_settings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86|x86_64|AMD64)$")
  # For short texts g++ would put a string instruction, which takes longer to begin than all of the copy.
  target_compile_options(qor_settings INTERFACE -mstringop-strategy=libcall)
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i[3-6]86|x86)$")
  target_compile_options(qor_settings INTERFACE -msse2 -mfpmath=sse)
endif()
if(QOR_FILE_DEVELOPER OR QOR_FILE_FUZZ)
  target_compile_options(qor_settings INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  # The sanitizers' own code makes g++ see uninitialized values in the standard library's.
  target_compile_options(qor_settings INTERFACE -Wno-maybe-uninitialized)
endif()

# What is shipped is hardened. Not under the sanitizers, which check more and replace the same functions.
add_library(qor_hardened_program INTERFACE) # link options, for what is linked here and shipped
if(NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  if(WIN32)
    # No stack protector: the compiler's library for it asks the system for random numbers while the loader holds its
    # lock, each time that the DLL is loaded.
    target_link_options(qor_hardened_program INTERFACE -Wl,--dynamicbase,--nxcompat)
    if(CMAKE_SIZEOF_VOID_P EQUAL 8)
      target_link_options(qor_hardened_program INTERFACE -Wl,--high-entropy-va)
    endif()
  else()
    include(CheckCXXCompilerFlag)
    foreach(option stack-protector-strong stack-clash-protection cf-protection)
      check_cxx_compiler_flag(-f${option} QOR_FILE_HAS_${option}) # the last one is for x86 only
      if(QOR_FILE_HAS_${option})
        target_compile_options(qor_settings INTERFACE -f${option})
      endif()
    endforeach()
    # In place of what the distribution's compiler may have set; it needs optimised code.
    target_compile_options(qor_settings INTERFACE
                           "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    target_link_options(qor_hardened_program INTERFACE -pie)
    if(NOT APPLE)
      target_link_options(qor_hardened_program INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
    endif()
  endif()
endif()

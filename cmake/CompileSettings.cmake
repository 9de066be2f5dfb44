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

# Language level, warnings and sanitizers, the same for every target.
set(CMAKE_C_STANDARD 11)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without these sloppinesses it would pass every source by that has a precompiled header.
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE})
  set(CMAKE_CXX_COMPILER_LAUNCHER
    env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

# -Wrestrict: GCC 12 reports false positives inside std::string concatenation. -Wsubobject-linkage: in a group of sources it
# takes each for a header.
add_library(sidecar_warnings INTERFACE)
target_compile_options(sidecar_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wundef -Wformat=2 -Wcast-align -Wimplicit-fallthrough
  $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast -Wextra-semi>
  $<$<AND:$<COMPILE_LANGUAGE:CXX>,$<CXX_COMPILER_ID:GNU>>:-Wduplicated-cond -Wlogical-op -Wsuggest-override
    -Wno-restrict $<$<BOOL:${SIDECAR_UNITY}>:-Wno-subobject-linkage>>)

# For sources that run once and wait on nothing: tests, and the command lines of programs. Optimising their templates
# under the sanitizers takes longer than all that they ever do.
set(SIDECAR_QUICK_BUILD "")
if(SIDECAR_TESTS OR SIDECAR_SANITIZE)
  set(SIDECAR_QUICK_BUILD -O0)
  if(NOT SIDECAR_SANITIZE)
    list(APPEND SIDECAR_QUICK_BUILD -U_FORTIFY_SOURCE) # which wants optimised code
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # The compiler's cache knows a precompiled header by its bytes.
    list(APPEND SIDECAR_QUICK_BUILD "SHELL:-Xclang -fno-pch-timestamp")
  endif()
endif()

# Libraries that are installed name their sources as the tree does, not by the folder that it lay in. A build that is there
# to be debugged keeps the whole names.
if(NOT SIDECAR_SANITIZE)
  add_compile_options(-ffile-prefix-map=${CMAKE_BINARY_DIR}/=build/ -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=)
endif()

# The module reads files of strangers within another program. tests/module/hardening.cmake reads the built files for this.
if(NOT SIDECAR_SANITIZE)
  add_compile_options(-fstack-protector-strong -fcf-protection=full $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()
if(WIN32)
  # The protector and the checked functions lie in a library of their own, which the first of these links.
  set(SIDECAR_SAFE_LINKING -fstack-protector-strong -Wl,--dynamicbase,--high-entropy-va,--nxcompat)
else()
  set(SIDECAR_SAFE_LINKING -Wl,-z,relro,-z,now,-z,noexecstack)
endif()
add_link_options(${SIDECAR_SAFE_LINKING})

if(SIDECAR_SANITIZE)
  add_compile_options(-fsanitize=${SIDECAR_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${SIDECAR_SANITIZE})
  if(SIDECAR_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()
if(SIDECAR_FUZZERS)
  # Coverage for every library; the targets themselves add libFuzzer's main.
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(WIN32)
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
endif()

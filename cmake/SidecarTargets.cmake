# The kinds of target that the folders are made of. Every folder of src/ is one layer: a static library that may use
# the layers named before it in SIDECAR_LAYERS, and no other.

# Lowest first: a layer, then its sub-folders. tools/checks/layers.py reads these rows and holds the include lines
# against their order.
set(SIDECAR_HOUSE
  "platform:   system files input graphics windows"
  "foundation: base errors streams localization alerts settings"
  "pixels:     pixmaps kernels tiles operations"
  "images:     icons png pictures"
  "drawing:    regions ports tools frames"
  "view:       messages input process tasks tree window"
  "layout:     language vocabulary placement build"
  "controls:   base frames text buttons fields scrolling sliders popups lists tabs tools"
  "plugin:     suites frame format filter export view_info"
  "dialogs:    settings plugin_dialog preview"
  "formats:    electricimage"
  "module:     ")
set(SIDECAR_LAYERS ${SIDECAR_HOUSE})
list(TRANSFORM SIDECAR_LAYERS REPLACE ":.*" "")

# The standard headers that most sources include, parsed once for all layers: a third less to compile. Not as a rule, since
# the compiler's cache then serves no other tree, and a source that forgets an include of its own isn't found.
if(SIDECAR_UNITY)
  add_library(sidecar_layer_headers STATIC EXCLUDE_FROM_ALL ${CMAKE_CURRENT_LIST_DIR}/headers_only.cpp)
  target_link_libraries(sidecar_layer_headers PRIVATE sidecar_warnings)
  target_precompile_headers(sidecar_layer_headers PRIVATE <algorithm> <array> <cmath> <cstdint> <cstring> <functional>
    <limits> <map> <memory> <optional> <span> <string> <string_view> <utility> <vector>)
endif()

# sidecar_layer(NAME [ALONE] [GENERATED file...] [EXCEPT file...] [LIBRARIES target...])
# Makes sidecar_NAME of every source in the folder and its folders, linked with all lower layers that exist. Of the
# folders linux/ and win32/ only the one of the system that is built for counts. ALONE: each of its sources is compiled
# for itself, since they have like names of their own, include what systems give short names to, or are replaced by a test.
function(sidecar_layer name)
  cmake_parse_arguments(layer "ALONE" "" "GENERATED;EXCEPT;LIBRARIES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.h *.cpp)
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "(^|/)linux/")
  else()
    list(FILTER sources EXCLUDE REGEX "(^|/)win32/")
  endif()
  if(layer_EXCEPT)
    list(REMOVE_ITEM sources ${layer_EXCEPT})
  endif()
  add_library(sidecar_${name} STATIC ${sources} ${layer_GENERATED})
  add_library(Sidecar::${name} ALIAS sidecar_${name}) # as whoever has the installed kit names it
  target_include_directories(sidecar_${name} PUBLIC
    $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/src> $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}/include>)
  target_link_libraries(sidecar_${name} PRIVATE $<BUILD_INTERFACE:sidecar_warnings>)
  if(SIDECAR_UNITY AND NOT name STREQUAL "platform") # whose libraries bring options of their own
    target_precompile_headers(sidecar_${name} REUSE_FROM sidecar_layer_headers)
  endif()
  if(layer_ALONE)
    set_target_properties(sidecar_${name} PROPERTIES UNITY_BUILD OFF)
  endif()
  foreach(lower IN LISTS SIDECAR_LAYERS)
    if(lower STREQUAL name)
      break()
    endif()
    if(TARGET sidecar_${lower})
      target_link_libraries(sidecar_${name} PUBLIC sidecar_${lower})
    endif()
  endforeach()
  target_link_libraries(sidecar_${name} PUBLIC ${layer_LIBRARIES})
endfunction()

# sidecar_program(NAME SOURCES file... [LIBRARIES target...])
function(sidecar_program name)
  cmake_parse_arguments(program "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_executable(${name} ${program_SOURCES})
  if(SIDECAR_SANITIZE MATCHES "address")
    target_sources(${name} PRIVATE ${CMAKE_SOURCE_DIR}/cmake/leak_suppressions.cpp)
  endif()
  if(SIDECAR_SANITIZE)
    target_compile_options(${name} PRIVATE ${SIDECAR_QUICK_BUILD})
  endif()
  target_link_libraries(${name} PRIVATE sidecar_warnings ${program_LIBRARIES})
endfunction()

# sidecar_tell_version(SOURCE)
# Gives the source that tells a program's version the one of the project, as SIDECAR_VERSION.
function(sidecar_tell_version source)
  set_property(SOURCE ${source} APPEND PROPERTY COMPILE_DEFINITIONS SIDECAR_VERSION="${PROJECT_VERSION}")
endfunction()

# sidecar_test(NAME SOURCES file... [LIBRARIES target...] [ARGUMENTS arg...] [THREADS] [DESKTOP])
# A googletest program, one entry of ctest. It is handed the source tree as SIDECAR_SOURCE_DIR. THREADS: it runs several
# threads, so the preset tsan builds and runs it too. DESKTOP: it opens windows; on Windows such tests run one after the
# other, since a desktop has but one active window and one mouse.
add_custom_target(thread_tests)
function(sidecar_test name)
  cmake_parse_arguments(test "THREADS;DESKTOP" "" "SOURCES;LIBRARIES;ARGUMENTS" ${ARGN})
  sidecar_program(${name} SOURCES ${test_SOURCES} LIBRARIES ${test_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_compile_options(${name} PRIVATE ${SIDECAR_QUICK_BUILD})
  target_precompile_headers(${name} REUSE_FROM sidecar_test_headers)
  # Only the sources that name it when the build is configured: the compiler's cache serves the others in every tree.
  foreach(source IN LISTS test_SOURCES)
    cmake_path(ABSOLUTE_PATH source)
    file(STRINGS ${source} uses REGEX SIDECAR_SOURCE_DIR LIMIT_COUNT 1)
    if(uses)
      set_property(SOURCE ${source} PROPERTY COMPILE_DEFINITIONS SIDECAR_SOURCE_DIR="${CMAKE_SOURCE_DIR}")
    endif()
  endforeach()
  add_test(NAME ${name} COMMAND ${name} ${test_ARGUMENTS})
  # What a test has stored for the user it doesn't find in the user's own folder. Under Wine the prefix sees to that.
  set_tests_properties(${name} PROPERTIES TIMEOUT 300
    ENVIRONMENT XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/${name}_user_data)
  if(test_DESKTOP AND WIN32)
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK desktop)
  endif()
  if(test_THREADS)
    set_tests_properties(${name} PROPERTIES LABELS threads)
    add_dependencies(thread_tests ${name})
  endif()
endfunction()

# sidecar_fuzzer(NAME SOURCES file... CORPUS folder [LIBRARIES target...])
# A libFuzzer target. Its ctest entry runs every seed of the folder and then mutates them for SIDECAR_FUZZ_SECONDS.
set(SIDECAR_FUZZ_SECONDS 10 CACHE STRING "How long each fuzz target mutates its seeds in a test run")
add_custom_target(fuzzers)
function(sidecar_fuzzer name)
  cmake_parse_arguments(fuzzer "" "CORPUS" "SOURCES;LIBRARIES" ${ARGN})
  sidecar_program(${name} SOURCES ${fuzzer_SOURCES} LIBRARIES ${fuzzer_LIBRARIES})
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  add_dependencies(fuzzers ${name})
  set(found ${CMAKE_CURRENT_BINARY_DIR}/${name}.found)
  file(MAKE_DIRECTORY ${found})
  add_test(NAME ${name}
    COMMAND ${name} -max_total_time=${SIDECAR_FUZZ_SECONDS} -timeout=20 -rss_limit_mb=3000 -print_final_stats=1
      ${found} ${CMAKE_CURRENT_SOURCE_DIR}/${fuzzer_CORPUS})
  set_tests_properties(${name} PROPERTIES TIMEOUT 900 LABELS fuzz
    ENVIRONMENT XDG_CONFIG_HOME=${CMAKE_CURRENT_BINARY_DIR}/${name}_user_data)
endfunction()

# sidecar_bench(NAME SOURCES file... [LIBRARIES target...])
# A benchmark program; ./bench runs every target that is named in the global property SIDECAR_BENCHES.
function(sidecar_bench name)
  cmake_parse_arguments(bench "" "" "SOURCES;LIBRARIES" ${ARGN})
  sidecar_program(${name} SOURCES ${bench_SOURCES} LIBRARIES ${bench_LIBRARIES})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests ${CMAKE_SOURCE_DIR}/benchmarks)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/benches)
endfunction()

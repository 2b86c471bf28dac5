# GoogleTest from Debian's source package, built here so that it has this build's compiler and sanitizers.
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

# The headers that every test includes, parsed once for all of them. A program, as tests are, since it must have their
# flags; it is never linked into anything.
add_executable(sidecar_test_headers EXCLUDE_FROM_ALL ${CMAKE_CURRENT_LIST_DIR}/headers_only.cpp)
target_link_libraries(sidecar_test_headers PRIVATE sidecar_warnings GTest::gmock)
target_compile_options(sidecar_test_headers PRIVATE ${SIDECAR_QUICK_BUILD})
target_include_directories(sidecar_test_headers PRIVATE ${CMAKE_SOURCE_DIR}/tests)
target_precompile_headers(sidecar_test_headers PRIVATE <support/testing.h>)

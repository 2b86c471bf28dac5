# sidecar_late_functions(NAME ARCHIVE LIBRARIES file...)
# Makes the static library NAME of stubs for what the static library ARCHIVE calls of the shared ones, and links whoever
# links ARCHIVE with it. The shared libraries are then loaded at the first call of theirs.
function(sidecar_late_functions name archive)
  cmake_parse_arguments(late "" "" "LIBRARIES" ${ARGN})
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(stubs ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  set(maker ${CMAKE_SOURCE_DIR}/cmake/late_functions.py)
  add_custom_command(
    OUTPUT ${stubs}
    COMMAND ${Python3_EXECUTABLE} ${maker} --nm ${CMAKE_NM} --readelf ${CMAKE_READELF} --archive $<TARGET_FILE:${archive}>
      --out ${stubs} ${late_LIBRARIES}
    DEPENDS ${maker} ${archive} ${late_LIBRARIES}
    COMMENT "Making stubs for the libraries that ${archive} calls"
    VERBATIM)
  add_library(${name} STATIC ${CMAKE_SOURCE_DIR}/src/platform/system/linux/late_binding.cpp ${stubs})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:sidecar_warnings> ${CMAKE_DL_LIBS})
  target_link_libraries(${archive} INTERFACE ${name})
endfunction()

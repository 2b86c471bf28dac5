# sidecar_header_libraries(TARGET NAME...)
# Lets a program include the headers <NAME/...> of libraries that are headers only. A cross-compiler must see these
# folders of the system and no others, so they are linked into a folder of their own.
function(sidecar_header_libraries target)
  set(headers ${CMAKE_BINARY_DIR}/header_libraries)
  file(MAKE_DIRECTORY ${headers})
  foreach(name IN LISTS ARGN)
    find_path(${name}_parent NAMES ${name} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    file(CREATE_LINK ${${name}_parent}/${name} ${headers}/${name} SYMBOLIC)
  endforeach()
  target_include_directories(${target} SYSTEM PUBLIC ${headers})
endfunction()

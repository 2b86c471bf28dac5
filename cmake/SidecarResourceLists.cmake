# Resources by lists: what resources/resources.list names is in the module and in the programs that need it. Each line of a
# list is: TYPE NAME path, the path from the list's folder or, after a leading "build:", from the folder of generated
# resources.
include(SidecarResources)
set(SIDECAR_GENERATED_RESOURCES ${CMAKE_BINARY_DIR}/resources)

# sidecar_write_resource_source(OUT [LIST])
# Writes the source that carries all resources of a list, the module's by default, and returns its path.
function(sidecar_write_resource_source out)
  set(list_file ${CMAKE_SOURCE_DIR}/resources/resources.list)
  if(ARGC GREATER 1)
    set(list_file ${ARGV1})
  endif()
  cmake_path(GET list_file PARENT_PATH folder)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list_file})
  file(STRINGS ${list_file} lines REGEX "^[^#]")
  set(rows "")
  foreach(line IN LISTS lines)
    if(NOT line MATCHES "^([A-Z]+)[ \t]+([^ \t]+)[ \t]+(build:)?([^ \t]+)[ \t]*$")
      message(FATAL_ERROR "${list_file}: a line must read TYPE NAME path, but this one reads: ${line}")
    endif()
    if(CMAKE_MATCH_3)
      list(APPEND rows "${CMAKE_MATCH_1} ${CMAKE_MATCH_2} ${SIDECAR_GENERATED_RESOURCES}/${CMAKE_MATCH_4}")
    else()
      list(APPEND rows "${CMAKE_MATCH_1} ${CMAKE_MATCH_2} ${folder}/${CMAKE_MATCH_4}")
    endif()
  endforeach()
  sidecar_write_resources(source sidecar_resources ${rows})
  set(${out} ${source} PARENT_SCOPE)
endfunction()

# sidecar_embed_resources(TARGET)
# Gives a module or program the resources. On Linux all that is linked with the platform library has them already.
function(sidecar_embed_resources target)
  if(WIN32)
    sidecar_write_resource_source(source)
    target_sources(${target} PRIVATE ${source})
  endif()
endfunction()

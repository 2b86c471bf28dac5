# Packs the files named in resources/resources.list into the module: as resources of the .dll on Windows, as a table in
# the platform library on Linux. Each line of the list is: TYPE NAME path, the path from the list's folder or, after a
# leading "build:", from the folder of generated resources. A name of digits alone is a number, and listed as "#number".
set(SIDECAR_GENERATED_RESOURCES ${CMAKE_BINARY_DIR}/resources)

function(sidecar_read_resource_list list_file out_types out_names out_paths)
  cmake_path(GET list_file PARENT_PATH folder)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list_file})
  file(STRINGS ${list_file} lines REGEX "^[^#]")
  foreach(line IN LISTS lines)
    if(NOT line MATCHES "^([A-Z]+)[ \t]+([^ \t]+)[ \t]+([^ \t]+)[ \t]*$")
      message(FATAL_ERROR "${list_file}: a line must read TYPE NAME path, but this one reads: ${line}")
    endif()
    set(path ${CMAKE_MATCH_3})
    if(path MATCHES "^build:(.*)$")
      set(path ${SIDECAR_GENERATED_RESOURCES}/${CMAKE_MATCH_1})
    else()
      set(path ${folder}/${path})
    endif()
    string(REGEX REPLACE "^([A-Z]+)[ \t]+([^ \t]+).*" "\\1" type "${line}")
    string(REGEX REPLACE "^([A-Z]+)[ \t]+([^ \t]+).*" "\\2" name "${line}")
    list(APPEND types ${type})
    list(APPEND names ${name})
    list(APPEND paths ${path})
  endforeach()
  set(${out_types} ${types} PARENT_SCOPE)
  set(${out_names} ${names} PARENT_SCOPE)
  set(${out_paths} ${paths} PARENT_SCOPE)
endfunction()

# sidecar_write_resource_source(OUT [LIST])
# Writes the source that carries all resources of a list, the module's by default, and returns its path: an .rc script
# or a C++ table.
function(sidecar_write_resource_source out)
  set(list_file ${CMAKE_SOURCE_DIR}/resources/resources.list)
  if(ARGC GREATER 1)
    set(list_file ${ARGV1})
  endif()
  sidecar_read_resource_list(${list_file} types names paths)
  set(blobs "")
  set(rows "")
  set(script "")
  set(index 0)
  foreach(type name path IN ZIP_LISTS types names paths)
    string(APPEND script "${name} ${type} \"${path}\"\n")
    string(APPEND blobs
      "__asm__(\".section .rodata\\n.balign 8\\nsidecar_resource_${index}:\\n.incbin \\\"${path}\\\"\\n"
      "sidecar_resource_${index}_end:\\n.byte 0\\n.text\\n\");\n"
      "extern \"C\" const unsigned char sidecar_resource_${index}[], sidecar_resource_${index}_end[];\n")
    string(REGEX REPLACE "^([0-9]+)$" "#\\1" name "${name}")
    string(APPEND rows
      "    {\"${type}\", \"${name}\", sidecar_resource_${index}, sidecar_resource_${index}_end},\n")
    math(EXPR index "${index} + 1")
  endforeach()
  if(WIN32)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/sidecar_resources.rc)
    file(CONFIGURE OUTPUT ${source} CONTENT "${script}" @ONLY)
  else()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/sidecar_resources.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT
"// Generated from resources/resources.list.
#include \"platform/system/linux/resource_table.h\"
${blobs}
namespace Platform {
const ResourceRow kResourceRows[] = {
${rows}};
const unsigned long kResourceRowCount = ${index};
} // namespace Platform
" @ONLY)
  endif()
  set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${paths}" GENERATED TRUE)
  set(${out} ${source} PARENT_SCOPE)
endfunction()

# sidecar_embed_resources(TARGET)
# Gives a module or program the resources. On Linux the platform library has them already.
function(sidecar_embed_resources target)
  if(WIN32)
    sidecar_write_resource_source(source)
    target_sources(${target} PRIVATE ${source})
  endif()
endfunction()

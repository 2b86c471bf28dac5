# How a plug-in module is made, in this project and by whoever has the kit: this file is part of it.
#
# sidecar_add_plugin(NAME
#   ENTRIES function...      what the property list names as entries; the module exports these and no other of its symbols
#   SOURCES file...
#   PROPERTIES file          the property list, JSON
#   [LAYOUTS file...]        layout texts, found by their file names
#   [STRINGS file...]        translations, lines of "$$$/Key=text" in UTF-8 or UTF-16
#   [ICONS file...]          lists of icons, whose drawings lie beside them; they join the toolkit's own
#   [DESCRIPTION text] [VERSION number])
#
# The targets are NAME, the module in bin/ of the build folder, and NAME_objects, its code, for tests. A plug-in with
# layouts carries the toolkit's icons. DESCRIPTION and VERSION are shown by Windows; without them, those of the project.
include_guard()
include(${CMAKE_CURRENT_LIST_DIR}/SidecarResources.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/SidecarVersion.cmake)

# The rows of files that are found by their own names.
function(sidecar_resource_rows out type)
  set(rows "")
  foreach(file IN LISTS ARGN)
    cmake_path(GET file FILENAME name)
    string(TOUPPER "${name}" name)
    cmake_path(ABSOLUTE_PATH file)
    list(APPEND rows "${type} ${name} ${file}")
  endforeach()
  set(${out} "${rows}" PARENT_SCOPE)
endfunction()

# The rows of string files. Modules carry UTF-16; files in UTF-8 are turned into that.
function(sidecar_string_rows out name)
  set(files "")
  foreach(file IN LISTS ARGN)
    cmake_path(ABSOLUTE_PATH file)
    file(READ ${file} mark LIMIT 2 HEX)
    if(NOT mark MATCHES "^(fffe|feff)$")
      find_program(ICONV iconv REQUIRED)
      cmake_path(GET file FILENAME leaf)
      set(folder ${CMAKE_CURRENT_BINARY_DIR}/${name}_strings)
      file(MAKE_DIRECTORY ${folder})
      add_custom_command(
        OUTPUT ${folder}/${leaf}
        COMMAND ${ICONV} -f UTF-8 -t UTF-16 -o ${folder}/${leaf} ${file}
        DEPENDS ${file}
        VERBATIM)
      set(file ${folder}/${leaf})
    endif()
    list(APPEND files ${file})
  endforeach()
  sidecar_resource_rows(rows TSTR ${files})
  set(${out} "${rows}" PARENT_SCOPE)
endfunction()

# The rows of the icon store: the toolkit's, or one that has the icons of the lists besides.
function(sidecar_icon_rows out name)
  set(store ${SIDECAR_KIT_ICONS})
  set(files IconResources.idx IconsLowRes.dat IconsHighRes.dat)
  if(ARGN)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    find_program(RSVG_CONVERT rsvg-convert REQUIRED) # the packer runs it
    set(lists ${ARGN})
    set(inputs ${SIDECAR_KIT_PACKER} ${store}/IconResources.idx)
    foreach(list IN LISTS lists)
      cmake_path(ABSOLUTE_PATH list OUTPUT_VARIABLE path)
      cmake_path(GET path PARENT_PATH folder)
      file(GLOB drawings CONFIGURE_DEPENDS ${folder}/*.svg)
      list(APPEND inputs ${path} ${drawings})
      list(APPEND paths ${path})
    endforeach()
    set(packed ${CMAKE_CURRENT_BINARY_DIR}/${name}_icons)
    list(TRANSFORM files PREPEND ${packed}/ OUTPUT_VARIABLE outputs)
    add_custom_command(
      OUTPUT ${outputs}
      COMMAND ${Python3_EXECUTABLE} ${SIDECAR_KIT_PACKER} --base ${store} --styles ${SIDECAR_KIT_ICON_STYLES} ${paths}
        ${packed} ${CMAKE_CURRENT_BINARY_DIR}/${name}_rendered
      DEPENDS ${inputs}
      COMMENT "Rendering the icons of ${name}"
      VERBATIM)
    set(store ${packed})
  endif()
  set(${out} "IDXF ICONRESOURCES.IDX ${store}/IconResources.idx" "IDXD ICONSLOWRES.DAT ${store}/IconsLowRes.dat"
    "IDXD ICONSHIGHRES.DAT ${store}/IconsHighRes.dat" PARENT_SCOPE)
endfunction()

# Exports the functions and no other symbol of the module; its own copy of the toolkit stays its own, whatever other
# plug-ins the process has.
function(sidecar_export target)
  if(WIN32)
    list(JOIN ARGN "\n" lines)
    file(CONFIGURE OUTPUT ${target}.def CONTENT "EXPORTS\n${lines}\n" @ONLY)
    target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${target}.def)
  else()
    list(JOIN ARGN ";" lines)
    file(CONFIGURE OUTPUT ${target}.map CONTENT "{ global: ${lines}; local: *; };\n" @ONLY)
    target_link_options(${target} PRIVATE -Wl,--version-script=${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
    set_target_properties(${target} PROPERTIES LINK_DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
  endif()
endfunction()

# What every module is: its name without a prefix, its entries, and on Linux the function by which a host reads resources.
function(sidecar_module target)
  set_target_properties(${target} PROPERTIES PREFIX "" LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
  if(WIN32)
    sidecar_export(${target} ${ARGN})
  else()
    sidecar_export(${target} ${ARGN} ModuleResource)
    # Tables of virtual functions are many addresses for the loader to set; packed, they are set in a quarter less time.
    target_link_options(${target} PRIVATE -Wl,--undefined=ModuleResource -Wl,-z,pack-relative-relocs)
    if(SIDECAR_SANITIZE)
      # The libraries below keep memory in their globals for the life of the process. Unloaded with the module, they would
      # leave it to the leak checker as lost.
      target_link_options(${target} PRIVATE -Wl,-z,nodelete)
    endif()
  endif()
endfunction()

function(sidecar_add_plugin name)
  cmake_parse_arguments(plugin "" "PROPERTIES;DESCRIPTION;VERSION" "ENTRIES;SOURCES;LAYOUTS;STRINGS;ICONS" ${ARGN})
  foreach(needed ENTRIES SOURCES PROPERTIES)
    if(NOT plugin_${needed})
      message(FATAL_ERROR "sidecar_add_plugin(${name}) needs ${needed}")
    endif()
  endforeach()
  if(plugin_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "sidecar_add_plugin(${name}) doesn't know what ${plugin_UNPARSED_ARGUMENTS} is")
  endif()
  if(NOT plugin_VERSION)
    set(plugin_VERSION "${PROJECT_VERSION}")
  endif()
  if(NOT plugin_DESCRIPTION)
    set(plugin_DESCRIPTION "${PROJECT_DESCRIPTION}")
  endif()

  add_library(${name}_objects OBJECT ${plugin_SOURCES})
  target_include_directories(${name}_objects PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name}_objects PUBLIC Sidecar::dialogs)
  set_target_properties(${name}_objects PROPERTIES CXX_STANDARD 20 CXX_EXTENSIONS OFF POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)

  set(version_file ${CMAKE_CURRENT_BINARY_DIR}/${name}_kit_version.txt)
  file(CONFIGURE OUTPUT ${version_file} CONTENT "${SIDECAR_KIT_VERSION}" @ONLY)
  cmake_path(ABSOLUTE_PATH plugin_PROPERTIES)
  set(rows "JSON JSON_TAGL ${plugin_PROPERTIES}" "TEXT KIT_VERSION ${version_file}")
  sidecar_resource_rows(layouts VEXF ${plugin_LAYOUTS})
  sidecar_string_rows(strings ${name} ${plugin_STRINGS})
  list(APPEND rows ${layouts} ${strings})
  if(plugin_LAYOUTS OR plugin_ICONS)
    sidecar_icon_rows(icons ${name} ${plugin_ICONS})
    list(APPEND rows ${icons})
  endif()
  sidecar_write_resources(resources ${name}_resources ${rows})

  add_library(${name} MODULE $<TARGET_OBJECTS:${name}_objects> ${resources})
  target_link_libraries(${name} PRIVATE Sidecar::dialogs)
  sidecar_module(${name} ${plugin_ENTRIES})
  sidecar_version_resource(${name} "${plugin_DESCRIPTION}" "${plugin_VERSION}")
  if(TARGET sidecar_warnings)
    target_link_libraries(${name}_objects PRIVATE sidecar_warnings)
    target_link_libraries(${name} PRIVATE sidecar_warnings)
  endif()
endfunction()

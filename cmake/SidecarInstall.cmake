# What `cmake --install` puts where.
#
#   runtime      bin/ the programs; the module and the file service, beside them on Windows, in lib/sidecar/ on Linux; a sample
#   development  include/, the static libraries and the CMake package in lib/, and share/sidecar/: the icon store with its
#                packer, examples
include(CMakePackageConfigHelpers)

set(package lib/cmake/Sidecar)
set(shared_data share/sidecar)
set(doc share/doc/sidecar)
if(WIN32)
  set(modules bin)
else()
  set(modules lib/sidecar)
endif()

# Debug information would carry the folders of this build to whoever installs it.
install(CODE "set(CMAKE_INSTALL_DO_STRIP 1)" ALL_COMPONENTS)

set(programs lumohost vex icons)
if(NOT WIN32)
  set_target_properties(${programs} PROPERTIES INSTALL_RPATH "\$ORIGIN/../${modules}")
endif()
install(TARGETS ${programs} RUNTIME DESTINATION bin COMPONENT runtime)
install(TARGETS sidecar LIBRARY DESTINATION ${modules} COMPONENT runtime)
install(TARGETS lumograph_plugin_service EXPORT SidecarTargets
  RUNTIME DESTINATION ${modules} COMPONENT runtime
  LIBRARY DESTINATION ${modules} COMPONENT runtime
  ARCHIVE DESTINATION lib/sidecar COMPONENT development)
set_target_properties(lumograph_plugin_service PROPERTIES EXPORT_NAME file_service)
install(FILES ${CMAKE_SOURCE_DIR}/samples/harbour.img DESTINATION ${shared_data}/samples COMPONENT runtime)
install(FILES ${CMAKE_SOURCE_DIR}/packaging/README.md ${CMAKE_SOURCE_DIR}/CHANGELOG.md DESTINATION ${doc} COMPONENT runtime)

# Pages of docs/, whose links to other folders of the tree lead to where these are installed.
function(install_pages component)
  foreach(page IN LISTS ARGN)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/${page})
    file(READ ${CMAKE_SOURCE_DIR}/docs/${page} text)
    string(REPLACE "](../include/" "](../../../include/" text "${text}")
    string(REPLACE "](../../examples/" "](../../../sidecar/examples/" text "${text}")
    file(WRITE ${CMAKE_BINARY_DIR}/installed_docs/${page} "${text}")
    cmake_path(GET page PARENT_PATH folder)
    install(FILES ${CMAKE_BINARY_DIR}/installed_docs/${page} DESTINATION ${doc}/${folder} COMPONENT ${component})
  endforeach()
endfunction()
install_pages(runtime lumohost.md)
file(GLOB toolkit_pages CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/docs ${CMAKE_SOURCE_DIR}/docs/kesto/*.md)
install_pages(development layout.md write-a-plugin.md write-a-host.md robot.md ${toolkit_pages})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/layout DESTINATION ${doc} COMPONENT development)
install(FILES ${CMAKE_SOURCE_DIR}/docs/soft-glow.png ${CMAKE_SOURCE_DIR}/docs/drawing.png
  DESTINATION ${doc} COMPONENT development)

# The layers that plug-ins are built on, without the module's own.
set(layers ${SIDECAR_LAYERS})
list(REMOVE_ITEM layers formats module)
if(NOT WIN32)
  list(APPEND layers late_functions) # which the platform is linked with
endif()
foreach(layer IN LISTS layers)
  set_target_properties(sidecar_${layer} PROPERTIES EXPORT_NAME ${layer})
  install(TARGETS sidecar_${layer} EXPORT SidecarTargets ARCHIVE DESTINATION lib/sidecar COMPONENT development)
  install(CODE "execute_process(COMMAND \"${CMAKE_STRIP}\" --strip-debug
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/lib/sidecar/$<TARGET_FILE_NAME:sidecar_${layer}>\" COMMAND_ERROR_IS_FATAL ANY)"
    COMPONENT development)
endforeach()
target_include_directories(sidecar_platform INTERFACE $<INSTALL_INTERFACE:include> $<INSTALL_INTERFACE:include/sidecar>)
target_include_directories(lumograph_plugin_service INTERFACE $<INSTALL_INTERFACE:include>)
target_compile_features(sidecar_platform INTERFACE $<INSTALL_INTERFACE:cxx_std_20>)
target_link_options(sidecar_platform INTERFACE "$<INSTALL_INTERFACE:${SIDECAR_SAFE_LINKING}>")
if(SIDECAR_SANITIZE)
  foreach(target sidecar_platform lumograph_plugin_service)
    target_compile_options(${target} INTERFACE $<INSTALL_INTERFACE:-fsanitize=${SIDECAR_SANITIZE}>)
    target_link_options(${target} INTERFACE $<INSTALL_INTERFACE:-fsanitize=${SIDECAR_SANITIZE}>)
  endforeach()
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    # For hosts in C, whose linker doesn't look for what the sanitizers do about C++.
    target_link_options(lumograph_plugin_service INTERFACE $<INSTALL_INTERFACE:-fsanitize-link-c++-runtime>)
    target_link_libraries(lumograph_plugin_service INTERFACE $<INSTALL_INTERFACE:stdc++>)
  endif()
endif()

install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/lumograph DESTINATION include COMPONENT development)
foreach(header IN LISTS SIDECAR_PUBLIC_HEADERS)
  cmake_path(RELATIVE_PATH header BASE_DIRECTORY ${CMAKE_SOURCE_DIR}/src OUTPUT_VARIABLE path)
  cmake_path(GET path PARENT_PATH folder)
  install(FILES ${header} DESTINATION include/sidecar/${folder} COMPONENT development)
endforeach()

configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/SidecarConfig.cmake.in ${CMAKE_BINARY_DIR}/SidecarConfig.cmake
  INSTALL_DESTINATION ${package} PATH_VARS shared_data)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/SidecarConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT SidecarTargets NAMESPACE Sidecar:: DESTINATION ${package} COMPONENT development)
install(FILES
  ${CMAKE_BINARY_DIR}/SidecarConfig.cmake ${CMAKE_BINARY_DIR}/SidecarConfigVersion.cmake
  ${CMAKE_CURRENT_LIST_DIR}/SidecarPlugin.cmake ${CMAKE_CURRENT_LIST_DIR}/SidecarResources.cmake
  ${CMAKE_CURRENT_LIST_DIR}/SidecarSystemLibraries.cmake ${CMAKE_CURRENT_LIST_DIR}/SidecarVersion.cmake
  DESTINATION ${package} COMPONENT development)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake DESTINATION ${shared_data} COMPONENT development)
install(PROGRAMS ${CMAKE_CURRENT_LIST_DIR}/wine-run DESTINATION ${shared_data} COMPONENT development)

set(store IconResources.idx IconsLowRes.dat IconsHighRes.dat)
list(TRANSFORM store PREPEND ${SIDECAR_GENERATED_RESOURCES}/icons/)
install(FILES ${store} DESTINATION ${shared_data}/icons COMPONENT development)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/resources/icons/styles DESTINATION ${shared_data}/icons COMPONENT development)
install(PROGRAMS ${CMAKE_SOURCE_DIR}/tools/icons/pack_icons.py DESTINATION ${shared_data} COMPONENT development)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples/soft_glow ${CMAKE_SOURCE_DIR}/examples/contact_sheet_export
  ${CMAKE_SOURCE_DIR}/examples/layouts DESTINATION ${shared_data}/examples COMPONENT development)

# The packages: `cpack --config build/PRESET/CPackConfig.cmake -B FOLDER`. On Linux sidecar and sidecar-dev for Debian, for
# Windows two archives of the same contents.
set(CPACK_PACKAGE_NAME sidecar)
set(CPACK_PACKAGE_VENDOR "The authors of Sidecar")
set(CPACK_PACKAGE_CONTACT "The authors of Sidecar <authors@sidecar.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_STRIP_FILES ON)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
  set(CPACK_ARCHIVE_RUNTIME_FILE_NAME sidecar-${PROJECT_VERSION}-win64)
  set(CPACK_ARCHIVE_DEVELOPMENT_FILE_NAME sidecar-dev-${PROJECT_VERSION}-win64)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_COMPRESSION_TYPE zstd)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME sidecar)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION graphics)
  set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "It opens and saves ElectricImage pictures. With it come lumohost, which does the same
from the command line, and tools for authors of plug-ins.")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/bin)
  # Beside those that are linked, the libraries that the module loads when it first draws or opens a window.
  string(JOIN ", " CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS fonts-dejavu-core
    libcairo2 libpango-1.0-0 libpangocairo-1.0-0 libglib2.0-0 libfreetype6 libharfbuzz0b libfontconfig1
    libxcb1 libxcb-randr0 libxcb-render0 libxcb-cursor0 libxcb-xkb1 libxkbcommon0 libxkbcommon-x11-0)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME sidecar-dev)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
  set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "Headers, libraries and examples for authors of other plug-ins and hosts.
Begin with write-a-plugin.md.")
  # What the static libraries are linked with.
  string(JOIN ", " CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "sidecar (= ${PROJECT_VERSION})" cmake zlib1g-dev)
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "g++, ninja-build")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "python3, librsvg2-bin") # for a plug-in's own icons
endif()
include(CPack)

# sidecar_version_resource(TARGET DESCRIPTION VERSION)
# On Windows a library carries its version as a resource, which the system shows. This file is part of the installed kit.
function(sidecar_version_resource target description version)
  if(NOT WIN32)
    return()
  endif()
  string(REGEX MATCHALL "[0-9]+" numbers "${version}.0.0.0.0")
  list(SUBLIST numbers 0 4 numbers)
  list(JOIN numbers "," numbers)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  file(CONFIGURE OUTPUT ${script} CONTENT
"1 VERSIONINFO
FILEVERSION ${numbers}
PRODUCTVERSION ${numbers}
FILEOS 0x40004
FILETYPE 0x2
BEGIN
  BLOCK \"StringFileInfo\"
  BEGIN
    BLOCK \"040904b0\"
    BEGIN
      VALUE \"FileDescription\", \"${description}\"
      VALUE \"FileVersion\", \"${version}\"
      VALUE \"InternalName\", \"${target}\"
      VALUE \"ProductName\", \"${PROJECT_NAME}\"
      VALUE \"ProductVersion\", \"${version}\"
    END
  END
  BLOCK \"VarFileInfo\"
  BEGIN
    VALUE \"Translation\", 0x409, 1200
  END
END
" @ONLY)
  target_sources(${target} PRIVATE ${script})
endfunction()

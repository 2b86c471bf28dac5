# sidecar_version_resource(TARGET DESCRIPTION)
# On Windows a library carries the version of the project() line as a resource, which the system shows.
function(sidecar_version_resource target description)
  if(NOT WIN32)
    return()
  endif()
  string(REPLACE "." "," numbers ${PROJECT_VERSION})
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc)
  file(CONFIGURE OUTPUT ${script} CONTENT
"1 VERSIONINFO
FILEVERSION ${numbers},0
PRODUCTVERSION ${numbers},0
FILEOS 0x40004
FILETYPE 0x2
BEGIN
  BLOCK \"StringFileInfo\"
  BEGIN
    BLOCK \"040904b0\"
    BEGIN
      VALUE \"FileDescription\", \"${description}\"
      VALUE \"FileVersion\", \"${PROJECT_VERSION}\"
      VALUE \"InternalName\", \"${target}\"
      VALUE \"ProductName\", \"${PROJECT_NAME}\"
      VALUE \"ProductVersion\", \"${PROJECT_VERSION}\"
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

# The module exports its entries and nothing else.
set(expected
  EntryBMP EntryColorHalftone EntryCropPhotos EntryCrystallize EntryDeinterlace EntryDisplace EntryElectricImage
  EntryExtrude EntryFibers EntryGIF EntryHsbhsl EntryInkwrightExport EntryKIFF EntryLensFlare EntryMezzotint
  EntryOpenEXR EntryPNG EntryPinch EntryPointillize EntryPolar EntryRadialBlur EntryRipple EntryShear EntrySmartBlur
  EntrySpherize EntryTarga EntryTiles EntryTwirl EntryWave EntryWind EntryZigZag)
if(MODULE MATCHES "[.]so$")
  list(APPEND expected ModuleResource) # for want of a resource section
  execute_process(COMMAND ${NM} -D --defined-only ${MODULE} OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL " [A-Za-z] [^\n]+" exported "${listing}")
else()
  execute_process(COMMAND ${OBJDUMP} -p ${MODULE} OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "^.*Ordinal/Name Pointer[^\n]*" "" listing "${listing}")
  string(REGEX MATCHALL "\n\t\\[ *[0-9]+\\] [^\n]+" exported "${listing}")
endif()
list(TRANSFORM exported REPLACE ".* " "")
list(SORT exported)
if(NOT exported STREQUAL expected)
  message(FATAL_ERROR "exported: ${exported}\nexpected: ${expected}")
endif()

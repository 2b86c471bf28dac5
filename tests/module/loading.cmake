# The libraries that the module is loaded with. Those for drawing and windows aren't among them: a host that shows neither
# would wait for them longer than for its picture.
execute_process(COMMAND ${READELF} --dynamic ${MODULE} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "NEEDED[^\n]*\\[[^\n]*\\]" needed "${dynamic}")
if(NOT needed)
  message(FATAL_ERROR "${MODULE} names no library at all:\n${dynamic}")
endif()
foreach(library IN LISTS needed)
  if(library MATCHES "cairo|pango|glib|gobject|harfbuzz|xcb|xkb|X11")
    message(SEND_ERROR "${MODULE} loads at once what it may never need: ${library}")
  endif()
endforeach()

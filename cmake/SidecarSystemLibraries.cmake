# The libraries of the system that the toolkit stands on. This file is part of the installed kit.
if(WIN32)
  # Modules carry zlib in themselves where the system has none of its own.
  set(ZLIB_USE_STATIC_LIBS ON)
  find_library(ZLIB_LIBRARY NAMES libz.a)
else()
  find_package(PkgConfig REQUIRED QUIET)
  pkg_check_modules(XCB REQUIRED QUIET IMPORTED_TARGET xcb xcb-randr xcb-render xcb-cursor xcb-xkb)
  pkg_check_modules(XKB REQUIRED QUIET IMPORTED_TARGET xkbcommon xkbcommon-x11)
  pkg_check_modules(CAIRO REQUIRED QUIET IMPORTED_TARGET cairo)
  pkg_check_modules(PANGO REQUIRED QUIET IMPORTED_TARGET pangocairo)
endif()
find_package(ZLIB REQUIRED)

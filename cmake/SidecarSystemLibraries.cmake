# The libraries of the system that programs of the toolkit are linked with. Those for drawing and windows aren't among them:
# src/platform loads them when they are first needed. This file is part of the installed kit.
if(WIN32)
  # Modules carry zlib in themselves where the system has none of its own.
  set(ZLIB_USE_STATIC_LIBS ON)
  find_library(ZLIB_LIBRARY NAMES libz.a)
endif()
find_package(ZLIB REQUIRED)

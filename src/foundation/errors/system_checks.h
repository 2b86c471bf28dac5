// Checks of what the operating system answers. Each passes a good answer by, and turns a bad one
// into a line of the debug log and a CSystemError.
//
// `file` and `line` are the caller's own unless they are given.
#pragma once

#include <cstdint>

namespace Kesto {

// Throws CSystemError(code) when `code` is not 0, and leaves no line in the log. For inner file
// routines.
void OSThrowBare(std::uint32_t code);

// Throws when `code` is not 0.
void OSThrow(std::uint32_t code, const char* file = __builtin_FILE(),
             std::uint32_t line = __builtin_LINE());

// Throws the last error when that is not 0.
void OSThrowLast(const char* file = __builtin_FILE(), std::uint32_t line = __builtin_LINE());

// Throws the last error for null, or the code of exhausted memory when there is no last error.
void OSThrowLastNull(const void* pointer, const char* file = __builtin_FILE(),
                     std::uint32_t line = __builtin_LINE());

// Throw the last error for 0 or false, even when that is 0.
void OSThrowLastZero(std::uintptr_t value, const char* file = __builtin_FILE(),
                     std::uint32_t line = __builtin_LINE());
void OSThrowLastFalse(bool flag, const char* file = __builtin_FILE(),
                      std::uint32_t line = __builtin_LINE());

// Throws the code of exhausted memory for null.
void OSThrowNull(const void* pointer, const char* file = __builtin_FILE(),
                 std::uint32_t line = __builtin_LINE());

// Throw `code` for 0 or false.
void OSThrowZero(std::uintptr_t value, std::uint32_t code, const char* file = __builtin_FILE(),
                 std::uint32_t line = __builtin_LINE());
void OSThrowFalse(bool flag, std::uint32_t code, const char* file = __builtin_FILE(),
                  std::uint32_t line = __builtin_LINE());

} // namespace Kesto

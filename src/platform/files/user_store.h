// Small binary values that a user's programs keep by key path and name: the registry of Windows.
//
// A key path has its levels apart by backslashes. On Linux the levels are folders in the user data
// folder and a value is the file of its name in the last of them, so that a user finds, copies and
// deletes it like any other file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace Platform {

// More than this is no value of ours and is not read.
inline constexpr std::size_t kUserValueLimit = std::size_t{64} << 20;

// The value's bytes; empty when it does not exist, is empty, or cannot be read.
std::vector<std::byte> ReadUserValue(const std::string& keyPath, const std::string& name);

// Stores the value, with its key where that is missing. Returns the operating system's code or 0;
// after a failure the former value is still there.
std::uint32_t WriteUserValue(const std::string& keyPath, const std::string& name,
                             std::span<const std::byte> value);

} // namespace Platform

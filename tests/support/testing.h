// GoogleTest with its matchers, and the parts of the standard library that tests use all the time.
// It is compiled once for all of them; a test includes the rest itself.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace Testing {

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr float kInfinity = std::numeric_limits<float>::infinity();

} // namespace Testing

// Undoes the row filters of PNG image data.
//
// Each row is a filter byte and then its bytes, each stored as the difference to a prediction from
// the byte of the pixel to the left, the byte above and the byte above left; what lies outside the
// image counts as 0. Rows of the filters 0 and above 4 are stored as they are.
#pragma once

#include <cstdint>

namespace Kesto {

// Recovers `rows` rows in place; filter bytes stay. rowBytes counts the filter byte and is at least
// 1; pixelBytes is 0 only for rows without bytes.
void UnfilterRows(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                  std::int32_t pixelBytes);

// The same, byte by byte: the truth that the fast way is held against.
void UnfilterRowsPlainly(std::uint8_t* data, std::int32_t rowBytes, std::int32_t rows,
                         std::int32_t pixelBytes);

} // namespace Kesto

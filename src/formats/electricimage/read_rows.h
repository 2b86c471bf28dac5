// Rows of a frame, from the file to bytes that the host can take.
#pragma once

#include "formats/electricimage/session.h"

namespace Project {

// Starts a frame: no packet is open.
void ResetRuns();

// Decodes the next row of `pixelCount` pixels as it lies in the file, unpacked, into `dest`, which
// holds at least the bytes that LayOutRow gives. A packet that reaches over the row's end goes on
// in the next call. Failures end in the session's result.
void EIReadRun(EIContext& context, uint8_t* dest, int32_t pixelCount);

// Decodes the next row of a depth frame: `pixelCount` floats by way of `scratch`. While the session
// is scanning they only widen its range; otherwise they become grey levels in `dest`, with 255 for
// "nothing here", positive infinity.
void EIReadDepthRow(EIContext& context, uint8_t* dest, uint8_t* scratch, int32_t pixelCount);

// Decodes the next row of any layout into `dest`, interleaved and 8 bits a channel. `scratch` holds
// two rows of `dest`, or five for a depth frame.
void ReadRow(EIContext& context, uint8_t* dest, uint8_t* scratch, int32_t pixelCount);

// Bytes that ReadRow makes of one pixel; 0 for a layout that it doesn't know.
int DecodedPixelBytes(const EIFrameHeader& frame);

} // namespace Project

// The state of one ElectricImage session, kept in the host's data word from selector to selector.
#pragma once

#include "formats/electricimage/file_layout.h"

#include "lumograph/lumograph.h"

namespace Project {

// The session block. It is zeroed when it is made and lives as long as the data word: no selector
// ends it.
struct EIContext {
    int16_t result; // of the selector at work
    HostFormatRecord* record;
    EIFileHeader fileHeader;
    EIFrameHeader frameHeader;
    float rangeMin; // of a depth frame's values
    float rangeMax;
    float rangeScale; // grey levels for each unit of depth; 0: the range is to be found first
    uint8_t scanning; // the rows are read for their range only
    HostBuffer writeBuffer;
    uint8_t* writeBufferPointer; // its address while it is locked
    uint8_t interactive; // alerts and the frame dialog are allowed; set by the read start only
    HostFile file;
    uint8_t reserved[8];
};

static_assert(sizeof(EIContext) == 112);

// Stores a failure in the session and shows its text when the session may show alerts. `message` is
// one of messages.h.
void FailWithMessage(EIContext& context, int16_t code, const char* message);

// Shows an alert with one OK button, the warning icon and the text alone, if the session may show
// alerts.
void EIShowError(const EIContext& context, const char* message);

// Tells the host that a row is about to be read or written. False when the user wants to stop,
// which is the result then.
bool BeginRow(EIContext& context, int32_t row);

// Reads exactly `count` bytes. A short delivery is a failure too.
bool ReadBytes(HostFile file, void* buffer, int64_t count);

} // namespace Project

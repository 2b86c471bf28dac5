// What all previews share: the record that blocks come through, and what the host has said.
#pragma once

#include "lumograph/records.h"

#include <cstdint>

namespace Project {

// The record of the filter that is at work, null between selectors. Whoever runs a dialog sets it.
inline HostFilterRecord* gFilterRecord = nullptr;

// While it is set, what a preview shows is the record's target, whatever its place and size.
inline bool gPreviewRunning = false;

// Source pixels for each of a new preview's; 1 at rest.
inline int16_t gSourceScale = 1;

// The host has no memory left for blocks.
inline bool gHostGaveUp = false;

// Makes a record the one of previews, for the scope of its dialog. Null is none.
class PreviewSession {
public:
    explicit PreviewSession(HostFilterRecord* record) { gFilterRecord = record; }
    ~PreviewSession()
    {
        gFilterRecord = nullptr;
        gHostGaveUp = false;
    }
    PreviewSession(const PreviewSession&) = delete;
    PreviewSession& operator=(const PreviewSession&) = delete;
};

} // namespace Project

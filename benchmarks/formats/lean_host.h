// The leanest host that a module can be driven by: one file in memory, one RGB picture, buffers
// with a limit, no checks. What it costs itself is the same for whatever runs on it.
#pragma once

#include "lumograph/lumograph.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace Bench {

using Bytes = std::vector<uint8_t>;

struct LeanHost {
    LeanHost();
    LeanHost(const LeanHost&) = delete;
    LeanHost& operator=(const LeanHost&) = delete;

    HostFormatRecord record{};
    intptr_t data = 0;
    Bytes file;
    size_t fileSize = 0; // of what was written; `file` keeps its room from run to run
    size_t position = 0;
    uint8_t* picture = nullptr; // rows come from here and go here; null: they are counted only
    std::function<void(int row, uint8_t* bytes)> makeRow; // or rows are made one by one
    bool sparing = false; // copies next to nothing: every row is the first one, and the file is a
                          // megabyte written round
    int64_t memoryLimit = 1 << 20;
    int64_t used = 0;
    int64_t peak = 0;
    int64_t rows = 0;
    std::vector<int64_t> requests; // sizes of the buffers asked for
    bool writing = false;

    // The host's callbacks have no context: they go to this one from here on.
    void MakeCurrent();

    // The whole operation through the entry; ends the program when it fails.
    void Open();
    void Save(int width, int height);
};

} // namespace Bench

extern "C" void EntryElectricImage(int16_t selector, void* record, intptr_t* data, int16_t* result);

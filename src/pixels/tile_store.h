// The memory limit and the scratch folders of the tile store.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace Kesto {

class CTileStore {
public:
    static CTileStore& Get();

    // Bytes that resident tiles may take.
    void SetLimit(uint64_t bytes) { fLimit = bytes; }
    uint64_t Limit() const { return fLimit; }

    // Opens the store over scratch folders; none: it looks for its own.
    bool IsOpen() const { return fOpen; }
    void Open(std::vector<std::filesystem::path> folders);

private:
    uint64_t fLimit = 0;
    bool fOpen = false;
    std::vector<std::filesystem::path> fFolders;
};

} // namespace Kesto

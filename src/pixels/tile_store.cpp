#include "pixels/tile_store.h"

#include <utility>

namespace Kesto {

CTileStore& CTileStore::Get()
{
    static CTileStore store;
    return store;
}

void CTileStore::Open(std::vector<std::filesystem::path> folders)
{
    fFolders = std::move(folders);
    fOpen = true;
}

} // namespace Kesto

#include "pixels/tiles/virtual_allocator.h"

#include <utility>

namespace Kesto {
namespace {

std::shared_ptr<CVirtualAllocator> gInstalled;

} // namespace

void CVirtualAllocator::Install(std::shared_ptr<CVirtualAllocator> allocator)
{
    gInstalled = std::move(allocator);
}

const std::shared_ptr<CVirtualAllocator>& CVirtualAllocator::Installed()
{
    return gInstalled;
}

} // namespace Kesto

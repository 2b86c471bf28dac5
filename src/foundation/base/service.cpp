#include "foundation/base/service.h"

#include <utility>

namespace Kesto {
namespace {

CService* gNewest = nullptr;

} // namespace

CService::~CService()
{
    Unlink();
}

void CService::ShutdownAll()
{
    while (gNewest != nullptr) {
        CService* const newest = std::exchange(gNewest, gNewest->fNext);
        newest->fNext = nullptr;
        newest->Destroy();
    }
}

void CService::Link()
{
    Unlink();
    fNext = std::exchange(gNewest, this);
}

void CService::Unlink()
{
    for (CService** link = &gNewest; *link != nullptr; link = &(*link)->fNext)
        if (*link == this) {
            *link = std::exchange(fNext, nullptr);
            return;
        }
}

} // namespace Kesto

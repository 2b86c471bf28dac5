#include "foundation/base/service.h"

#include <utility>

namespace Kesto {
namespace {

CService* gNewest = nullptr;

// Ends the services that are left when the program exits or the module is unloaded. It is made with
// the first service, so that it ends before the static objects that services may rely on.
struct ServicesEnd {
    ~ServicesEnd() { ShutdownServices(); }
};

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

void CService::RecreateAll()
{
    for (CService* service = gNewest; service != nullptr; service = service->fNext)
        service->Recreate();
}

void CService::Link()
{
    static const ServicesEnd end;
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

#include "view/process/clean_up_list.h"

#include <vector>

namespace Kesto {
namespace {

std::vector<CCleanUp*>& Waiting()
{
    static std::vector<CCleanUp*> waiting;
    return waiting;
}

} // namespace

CCleanUp::~CCleanUp()
{
    if (fWaiting)
        std::erase(Waiting(), this);
}

void CCleanUp::CleanUpLater()
{
    if (!fWaiting)
        Waiting().push_back(this);
    fWaiting = true;
}

void RunCleanUpList()
{
    while (!Waiting().empty()) {
        CCleanUp* const next = Waiting().front();
        Waiting().erase(Waiting().begin());
        next->fWaiting = false;
        next->CleanUp();
    }
}

} // namespace Kesto

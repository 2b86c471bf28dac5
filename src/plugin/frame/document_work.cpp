#include "plugin/frame/document_work.h"

#include "lumograph/results.h"
#include "plugin/frame/lumograph_error.h"

#include <new>

namespace Kesto {

void FetchFromHost(int16_t (*fetch)())
{
    if (fetch == nullptr)
        throw CLumographError(kHostBadParameter);
    if (const int16_t code = fetch(); code != kHostNoError)
        throw CLumographError(code);
}

void ReportToHost(void (*report)(int32_t, int32_t), uint8_t (*abortCheck)(), int32_t done,
                  int32_t total)
{
    if (report != nullptr)
        report(done, total);
    if (abortCheck != nullptr && abortCheck() != 0)
        throw CLumographError(kHostUserCanceled);
}

int16_t CodeOfWork(const std::function<void()>& work)
try {
    work();
    return kHostNoError;
} catch (const CLumographError& error) {
    return error.Code();
} catch (const std::bad_alloc&) {
    return kHostMemoryFull;
}

} // namespace Kesto

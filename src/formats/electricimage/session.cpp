#include "formats/electricimage/session.h"

#include "foundation/alerts/alert.h"

namespace Project {

void FailWithMessage(EIContext& context, int16_t code, const char* message)
{
    EIShowError(context, message);
    context.result = code;
}

void EIShowError(const EIContext& context, const char* message)
{
    using namespace Kesto;
    if (context.interactive != 0)
        ShowAlert(AlertButtons::kOK, AlertIcon::kWarning, AlertModality::kTask, CText(message),
                  CText(), CText());
}

bool BeginRow(EIContext& context, int32_t row)
{
    const HostFormatRecord& record = *context.record;
    if (record.abortCheck != nullptr && record.abortCheck() != 0) {
        context.result = kHostUserCanceled;
        return false;
    }
    if (record.progressReport != nullptr)
        record.progressReport(row, record.rowCount);
    return true;
}

bool ReadBytes(HostFile file, void* buffer, int64_t count)
{
    int64_t delivered = count;
    return FastRead(file, &delivered, buffer) == kHostNoError && delivered == count;
}

} // namespace Project

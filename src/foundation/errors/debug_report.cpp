#include "foundation/errors/debug_report.h"

#include "foundation/base/process_services.h"
#include "foundation/errors/exceptions.h"

#include <cstdio>
#include <memory>
#include <mutex>

namespace Kesto {
namespace {

const char* TextOrEmpty(const char* text)
{
    return text != nullptr ? text : "";
}

// Without a process to post to, several threads may come here.
void AppendToLog(const char* message, const char* file, std::uint32_t line)
{
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    [[maybe_unused]] static const int startAnew = std::remove(kDebugLogPath);
    struct CloseFile {
        void operator()(std::FILE* log) const { std::fclose(log); }
    };
    if (const std::unique_ptr<std::FILE, CloseFile> log{std::fopen(kDebugLogPath, "a")})
        std::fprintf(log.get(), "%s,%s,%d\n", TextOrEmpty(message), TextOrEmpty(file),
                     static_cast<int>(line));
}

} // namespace

void DebugReport(const char* message, const char* file, std::uint32_t line, bool throwIt)
{
    CProcessServices& process = CProcessServices::Current();
    if (!process.IsMainThread() && process.PostDebugReport(message, file, line, throwIt))
        return;
    AppendToLog(message, file, line);
    if (throwIt)
        throw CDebugError(message, file, line);
}

} // namespace Kesto

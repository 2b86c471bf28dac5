#include "foundation/errors/system_checks.h"

#include "foundation/errors/debug_report.h"
#include "foundation/errors/exceptions.h"
#include "platform/system/errors.h"

namespace Kesto {
namespace {

// `code` is taken before the log is written, which has an operating-system error of its own.
[[noreturn]] void Throw(const char* message, std::uint32_t code, const char* file,
                        std::uint32_t line)
{
    DebugReport(message, file, line, false);
    throw CSystemError(code);
}

} // namespace

void OSThrowBare(std::uint32_t code)
{
    if (code != 0)
        throw CSystemError(code);
}

void OSThrow(std::uint32_t code, const char* file, std::uint32_t line)
{
    if (code != 0)
        Throw("Exception thrown: \"CSystemError from OSThrow\".", code, file, line);
}

void OSThrowLast(const char* file, std::uint32_t line)
{
    if (const std::uint32_t code = Platform::LastError(); code != 0)
        Throw("Exception thrown: \"CSystemError from OSThrowLast\".", code, file, line);
}

void OSThrowLastNull(const void* pointer, const char* file, std::uint32_t line)
{
    if (pointer != nullptr)
        return;
    const std::uint32_t code = Platform::LastError();
    Throw("Exception thrown: \"CSystemError from OSThrowLastNull\".",
          code != 0 ? code : Platform::kOutOfMemoryCode, file, line);
}

void OSThrowLastZero(std::uintptr_t value, const char* file, std::uint32_t line)
{
    if (value == 0)
        Throw("Exception thrown: \"CSystemError from OSThrowLastZero\".", Platform::LastError(),
              file, line);
}

void OSThrowLastFalse(bool flag, const char* file, std::uint32_t line)
{
    if (!flag)
        Throw("Exception thrown: \"CSystemError from OSThrowLastFalse\".", Platform::LastError(),
              file, line);
}

void OSThrowNull(const void* pointer, const char* file, std::uint32_t line)
{
    if (pointer == nullptr)
        Throw("Exception thrown: \"CSystemError from OSThrowNull\".", Platform::kOutOfMemoryCode,
              file, line);
}

void OSThrowZero(std::uintptr_t value, std::uint32_t code, const char* file, std::uint32_t line)
{
    if (value == 0)
        Throw("Exception thrown: \"CSystemError from OSThrowZero\".", code, file, line);
}

void OSThrowFalse(bool flag, std::uint32_t code, const char* file, std::uint32_t line)
{
    if (!flag)
        Throw("Exception thrown: \"CSystemError from OSThrowFalse\".", code, file, line);
}

} // namespace Kesto

#include "robot/message_file.h"

#include "robot/script.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <stdexcept>

namespace Host {
namespace {

using nlohmann::ordered_json;

// Without a decimal point where no digits follow it; NaN and infinities are null.
ordered_json NumberOf(double number)
{
    constexpr double kMostExact = 9007199254740992.0;
    if (!std::isfinite(number))
        return nullptr;
    if (number == std::floor(number) && std::fabs(number) <= kMostExact)
        return static_cast<std::int64_t>(number);
    return number;
}

ordered_json ToJson(const HostMessage& message)
{
    ordered_json line{{"kind", message.kind}, {"id", message.id}, {"source", message.source}};
    if ((message.fields & kHostMessageHasPhase) != 0)
        line["phase"] = message.phase;
    const bool hasNames = (message.fields & kHostMessageHasNames) != 0;
    if ((message.fields & kHostMessageHasValue) != 0) {
        line["value"] = hasNames ? ordered_json(message.valueName) : NumberOf(message.value);
        line["old"] = hasNames ? ordered_json(message.oldName) : NumberOf(message.old);
    }
    if ((message.fields & kHostMessageHasStart) != 0)
        line["start"] = NumberOf(message.start);
    return line;
}

} // namespace

MessageFile::MessageFile(const std::string& path)
    : fFile(FileOf(path), std::ios::binary | std::ios::trunc)
{
    if (!fFile)
        throw std::runtime_error(path + ": the file can't be written");
}

void MessageFile::Add(void* context, const HostMessage* message)
{
    auto& file = static_cast<MessageFile*>(context)->fFile;
    file << ToJson(*message).dump(-1, ' ', false, ordered_json::error_handler_t::replace) << '\n'
         << std::flush;
}

} // namespace Host

#include "plugin/frame/handlers.h"

namespace Kesto {

int16_t About(CLumographPlugin& plugin, const HostCall& call)
{
    return RunInFrame([&] {
        plugin.RememberCall({kFormatAbout, nullptr, call.data});
        plugin.aboutRecord = static_cast<const HostAboutRecord*>(call.record);
        plugin.flags &= ~CLumographPlugin::kFlag_Working;
        plugin.flags |= CLumographPlugin::kFlag_About;
        plugin.RunAbout();
        plugin.flags &= ~CLumographPlugin::kFlag_About;
        return int16_t{kHostNoError};
    });
}

} // namespace Kesto

// What the dispatcher asks of a filter. The frame of a concrete filter derives from this; the
// module has none yet.
#pragma once

#include "plugin/frame/lumograph_plugin.h"

#include <memory>

namespace Kesto {

class CLumographFilter : public CLumographPlugin {
public:
    virtual int16_t HandleAbout(const HostAboutRecord* record, intptr_t* data) = 0;
    virtual int16_t HandleParameters(HostFilterRecord* record, intptr_t* data) = 0;
    virtual int16_t HandlePrepare(HostFilterRecord* record, intptr_t* data) = 0;
    virtual int16_t HandleStart(HostFilterRecord* record, intptr_t* data) = 0;
    virtual int16_t HandleContinue(HostFilterRecord* record, intptr_t* data) = 0;
    virtual int16_t HandleFinish(HostFilterRecord* record, intptr_t* data) = 0;
};

// A helper that a filter keeps for one run. Handing over another one, or null, ends the one before.
class CFilterHelper {
public:
    virtual ~CFilterHelper() = default;
};
void SetFilterHelper(std::unique_ptr<CFilterHelper> helper);

} // namespace Kesto

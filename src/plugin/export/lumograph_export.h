// What the dispatcher asks of an export. The frame of a concrete export derives from this; the
// module has none yet.
#pragma once

#include "plugin/frame/lumograph_plugin.h"

namespace Kesto {

class CLumographExport : public CLumographPlugin {
public:
    virtual int16_t HandleAbout(const HostAboutRecord* record, intptr_t* data) = 0;
    virtual int16_t HandleCheck(HostExportRecord* record, intptr_t* data) = 0;
    virtual int16_t HandlePrepare(HostExportRecord* record, intptr_t* data) = 0;
    virtual int16_t HandleStart(HostExportRecord* record, intptr_t* data) = 0;
    virtual int16_t HandleFinish(HostExportRecord* record, intptr_t* data) = 0;
};

} // namespace Kesto

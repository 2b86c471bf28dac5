// The one live project of the module: the ElectricImage file format.
#pragma once

#include "plugin/format/format.h"

namespace Project {

class PFormatElectricImage : public PFormat {
public:
    // Passes on to EIPluginMain, which knows nothing of this object.
    void DoPluginMain(int16_t selector, HostFormatRecord* record, intptr_t* data,
                      int16_t* result) override;

    // The frame dialog, or null when somebody has set no maker of it.
    std::unique_ptr<Kesto::CPluginDialog> GetDialog() override;

    Kesto::CText GetProductName() override;

    void GetSettingsLocation(Kesto::CText& keyPath, Kesto::CText& fileName) override;
};

} // namespace Project

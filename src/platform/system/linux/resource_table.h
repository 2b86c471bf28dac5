// The table that the build generates from resources/resources.list; there is no resource section on
// this system.
#pragma once

namespace Platform {

struct ResourceRow {
    const char* type;
    const char* name;
    const unsigned char* begin;
    const unsigned char* end;
};

extern const ResourceRow kResourceRows[];
extern const unsigned long kResourceRowCount;

} // namespace Platform

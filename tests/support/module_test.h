// What the tests of the module share: a host of their own, alerts that are caught, and an end that
// leaves nothing behind.
#pragma once

#include "support/alert_capture.h"
#include "support/scriptable_host.h"
#include "support/testing.h"

namespace Testing {

// Unloads the module and expects that the host has nothing to complain about and lacks no more than
// is said.
inline void ExpectClean(ScriptableHost& host, size_t buffers = 0, size_t files = 0,
                        size_t locked = 0)
{
    host.fault.reset();
    EXPECT_EQ(host.Unload(), 0);
    EXPECT_EQ(host.Misuse(), "");
    EXPECT_EQ(host.SuitesHeld(), 0);
    EXPECT_EQ(host.HooksHeld(), 0);
    EXPECT_EQ(host.Buffers(), buffers);
    EXPECT_EQ(host.LockedBuffers(), locked);
    EXPECT_EQ(host.OpenFiles(), files);
    EXPECT_LE(host.Handles(), size_t{1});
}

// The record is packed: its pointers can't be bound to a reference.
inline void* RowsAddress(const ScriptableHost& host)
{
    return host.record.rowsAddress;
}

class ModuleTest : public ::testing::Test {
protected:
    AlertCapture alerts;
    ScriptableHost host;

    void TearDown() override
    {
        host.fault.reset();
        host.Unload();
        EXPECT_EQ(host.Misuse(), "");
        EXPECT_EQ(host.SuitesHeld(), 0);
    }
};

inline std::ostream& operator<<(std::ostream& out, const Outcome& outcome)
{
    return out << outcome.code << " from selector " << outcome.selector;
}

inline std::ostream& operator<<(std::ostream& out, const HostCall& call)
{
    return out << "call " << static_cast<int>(call.kind) << " (" << call.a << ", " << call.b << ")";
}

} // namespace Testing

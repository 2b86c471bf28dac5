// The toolkit's services, seen through the module's entries: they live as long as its objects.
#include "foundation/alerts/reporter.h"
#include "foundation/localization/string_table.h"
#include "pixels/tiles/virtual_heap.h"
#include "support/ei_file.h"
#include "support/module_test.h"
#include "view/process/desktop.h"

namespace Testing {
namespace {

using namespace Kesto;

using Services = ModuleTest;

TEST_F(Services, EndWithTheLastObjectOfTheModule)
{
    const Bytes file = OneFrameFile({.width = 2, .height = 1, .pixels = Bytes(2 * 3 + 1, 7)});
    for (const bool resident : {false, true}) {
        SCOPED_TRACE(resident ? "a resident object" : "an object for one session");
        if (resident)
            host.Call(kFormatLoad);
        EXPECT_EQ(host.Open(file), Outcome{});
        EXPECT_EQ(CServiceT<CDesktop>::Get(false) != nullptr, resident);
        CServiceT<CStringTable>::Get();
        CServiceT<CVirtualHeap>::Get();
        host.Call(kFormatLoad);
        host.Call(kFormatUnload);
        EXPECT_EQ(CServiceT<CDesktop>::Get(false), nullptr);
        EXPECT_EQ(CServiceT<CStringTable>::Get(false), nullptr);
        EXPECT_EQ(CServiceT<CVirtualHeap>::Get(false), nullptr);
        EXPECT_EQ(CServiceT<CReporter>::Get(false), nullptr);
    }
}

} // namespace
} // namespace Testing

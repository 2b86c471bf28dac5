#include "foundation/base/service.h"
#include "support/testing.h"

using namespace Kesto;
using testing::ElementsAre;

namespace {

using Log = std::vector<std::string>;
Log gLog;

template <char kName>
struct Part {
    Part() { gLog.push_back(std::string("+") + kName); }
    ~Part() { gLog.push_back(std::string("-") + kName); }
};

// Uses another service while it goes.
struct Clinging {
    ~Clinging() { CServiceT<Part<'Z'>>::Get(); }
};

template <char kName>
using PartService = CServiceT<Part<kName>>;

class Service : public testing::Test {
protected:
    Service()
    {
        ShutdownServices();
        gLog.clear();
    }
    ~Service() override { ShutdownServices(); }

    Log LogOfShutdown()
    {
        gLog.clear();
        ShutdownServices();
        return gLog;
    }
};

} // namespace

TEST_F(Service, IsMadeOnlyWhenAskedFor)
{
    EXPECT_EQ(PartService<'A'>::Get(false), nullptr);
    PartService<'A'>::Holder().Recreate();
    EXPECT_THAT(gLog, ElementsAre());
    Part<'A'>* const made = PartService<'A'>::Get(true);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(PartService<'A'>::Get(false), made);
    EXPECT_EQ(PartService<'A'>::Get(true), made);
    PartService<'A'>::Holder().Recreate();
    EXPECT_THAT(gLog, ElementsAre("+A", "-A", "+A"));
}

TEST_F(Service, ShutsDownNewestFirstAndCanBeUsedAgain)
{
    for (const bool makeAgain : {false, true}) {
        SCOPED_TRACE(makeAgain ? "one is made again" : "as they were made");
        PartService<'A'>::Get();
        PartService<'B'>::Get();
        PartService<'C'>::Get();
        if (makeAgain) {
            PartService<'B'>::Holder().Destroy();
            PartService<'B'>::Get(); // the newest now
        }
        EXPECT_EQ(LogOfShutdown(), (makeAgain ? Log{"-B", "-C", "-A"} : Log{"-C", "-B", "-A"}));
        EXPECT_EQ(PartService<'A'>::Get(false), nullptr);
    }
}

TEST_F(Service, AllAreMadeAnewInAChain)
{
    PartService<'A'>::Get();
    PartService<'B'>::Get();
    PartService<'C'>::Get();
    PartService<'B'>::Holder().Destroy();
    gLog.clear();
    CService::RecreateAll();
    EXPECT_THAT(gLog, ElementsAre("-C", "+C", "-A", "+A")) << "what was destroyed stays so";
    EXPECT_EQ(LogOfShutdown(), (Log{"-C", "-A"}));
}

TEST_F(Service, MadeDuringShutdownIsDestroyedToo)
{
    CServiceT<Clinging>::Get();
    EXPECT_THAT(LogOfShutdown(), ElementsAre("+Z", "-Z"));
}

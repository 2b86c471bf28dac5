#include "foundation/service.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace Kesto;
using testing::ElementsAre;

namespace {

std::vector<std::string> gLog;

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

    std::vector<std::string> LogOfShutdown()
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
    PartService<'A'>::Get();
    PartService<'B'>::Get();
    PartService<'C'>::Get();
    EXPECT_THAT(LogOfShutdown(), ElementsAre("-C", "-B", "-A"));
    EXPECT_EQ(PartService<'A'>::Get(false), nullptr);
    PartService<'A'>::Get();
    PartService<'B'>::Get();
    PartService<'A'>::Holder().Destroy();
    PartService<'A'>::Get(); // the newest again
    EXPECT_THAT(LogOfShutdown(), ElementsAre("-A", "-B"));
    EXPECT_THAT(LogOfShutdown(), ElementsAre());
}

TEST_F(Service, MadeDuringShutdownIsDestroyedToo)
{
    CServiceT<Clinging>::Get();
    EXPECT_THAT(LogOfShutdown(), ElementsAre("+Z", "-Z"));
}

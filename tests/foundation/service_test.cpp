#include "foundation/service.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace Kesto;

namespace {

std::vector<std::string> gLog;

template <char kName>
struct Part {
    Part() { gLog.push_back(std::string("+") + kName); }
    ~Part() { gLog.push_back(std::string("-") + kName); }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;
};

// Uses another service while it goes.
struct Clinging {
    Clinging() = default;
    ~Clinging() { CServiceT<Part<'Z'>>::Get(); }
    Clinging(const Clinging&) = delete;
    Clinging& operator=(const Clinging&) = delete;
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
};

} // namespace

TEST_F(Service, IsMadeOnlyWhenAskedFor)
{
    EXPECT_EQ(PartService<'A'>::Get(false), nullptr);
    EXPECT_TRUE(gLog.empty());
    Part<'A'>* const made = PartService<'A'>::Get(true);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(PartService<'A'>::Get(false), made);
    EXPECT_EQ(PartService<'A'>::Get(true), made);
    EXPECT_THAT(gLog, testing::ElementsAre("+A"));
}

TEST_F(Service, ShutsDownNewestFirst)
{
    PartService<'A'>::Get();
    PartService<'B'>::Get();
    PartService<'C'>::Get();
    gLog.clear();
    ShutdownServices();
    EXPECT_THAT(gLog, testing::ElementsAre("-C", "-B", "-A"));
    EXPECT_EQ(PartService<'A'>::Get(false), nullptr);
}

TEST_F(Service, CanBeUsedAgainAfterShutdown)
{
    PartService<'A'>::Get();
    ShutdownServices();
    PartService<'A'>::Get();
    gLog.clear();
    ShutdownServices();
    EXPECT_THAT(gLog, testing::ElementsAre("-A"));
}

TEST_F(Service, BecomesNewestWhenMadeAgain)
{
    PartService<'A'>::Get();
    PartService<'B'>::Get();
    PartService<'A'>::Holder().Destroy();
    PartService<'A'>::Get();
    gLog.clear();
    ShutdownServices();
    EXPECT_THAT(gLog, testing::ElementsAre("-A", "-B"));
}

TEST_F(Service, RecreatesOnlyWhatExists)
{
    PartService<'A'>::Holder().Recreate();
    EXPECT_TRUE(gLog.empty());
    PartService<'A'>::Get();
    PartService<'A'>::Holder().Recreate();
    EXPECT_THAT(gLog, testing::ElementsAre("+A", "-A", "+A"));
}

TEST_F(Service, MadeDuringShutdownIsDestroyedToo)
{
    CServiceT<Clinging>::Get();
    ShutdownServices();
    EXPECT_THAT(gLog, testing::ElementsAre("+Z", "-Z"));
}

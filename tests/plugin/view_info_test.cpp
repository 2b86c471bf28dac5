// How a host looks into a plug-in's windows, with the suites of the stand-alone host.
#include "controls/buttons/button.h"
#include "driver/basic_suite.h"
#include "foundation/base/service.h"
#include "plugin/frame/lumograph_plugin.h"
#include "plugin/view_info/control_description.h"
#include "plugin/view_info/view_description.h"
#include "plugin/view_info/view_info_hook.h"
#include "suites/descriptors.h"
#include "suites/string_ids.h"
#include "suites/ui_hooks.h"
#include "support/testing.h"
#include "view/process/desktop.h"
#include "view/window/window_kinds.h"

#include <nlohmann/json.hpp>

using namespace Kesto;
using Json = nlohmann::ordered_json;

namespace {

// Calls of the host's suites, of which one fails.
int gCalls = 0;
int gFailing = -1;

template <auto GetSuite, auto Function>
struct Failing;
template <class Suite, const Suite* (*GetSuite)(), class... Arguments,
          int32_t (*Suite::*Function)(Arguments...)>
struct Failing<GetSuite, Function> {
    static int32_t Call(Arguments... arguments)
    {
        return gCalls++ == gFailing ? int32_t{kHostMemoryFull}
                                    : (GetSuite()->*Function)(arguments...);
    }
};

int32_t AcquireFailing(const char* name, int32_t version, const void** suite)
{
    using D = HostDescriptorSuite;
    using L = HostListSuite;
    constexpr auto kD = Host::DescriptorSuite;
    constexpr auto kL = Host::ListSuite;
    static const D descriptors = {kHostDescriptorTableVersion,
                                  8,
                                  {},
                                  Failing<kD, &D::Make>::Call,
                                  kD()->Free,
                                  Failing<kD, &D::PutInteger>::Call,
                                  Failing<kD, &D::PutFloat>::Call,
                                  Failing<kD, &D::PutBoolean>::Call,
                                  Failing<kD, &D::PutString>::Call,
                                  Failing<kD, &D::PutObject>::Call,
                                  Failing<kD, &D::PutList>::Call};
    static const L lists = {kHostListTableVersion,       3,          {},
                            Failing<kL, &L::Make>::Call, kL()->Free, Failing<kL, &L::Append>::Call};
    static const HostStringIdSuite names = {
        kHostStringIdTableVersion,
        1,
        {},
        Failing<Host::StringIdSuite, &HostStringIdSuite::KeyOf>::Call};
    const std::map<std::string_view, const void*> failing = {
        {kHostDescriptorSuiteName, &descriptors},
        {kHostListSuiteName, &lists},
        {kHostStringIdSuiteName, &names}};
    const int32_t code = Host::BasicSuite()->suites->AcquireSuite(name, version, suite);
    if (const auto found = failing.find(name); code == kHostNoError && found != failing.end())
        *suite = found->second;
    return code;
}

struct Plugin : CLumographPlugin {
    Plugin() { projectIndex = ProjectIndex{77}; }
    const HostBasicSuite* GetBasicSuite() override { return fBasic; }
    CText GetProductName() override { return "A plug-in"; }
    const HostBasicSuite* fBasic = Host::BasicSuite();
};

class ViewInfo : public ::testing::Test {
protected:
    void Open()
    {
        CWindowPlan plan;
        plan.id = CObjID("Test/Window");
        plan.title = "A window";
        fWindow = std::make_unique<CDialog>(plan);
        auto* const button = fWindow->AppendChild(
            std::make_unique<CButton>(Rect{10, 20, 60, 44}, CObjID("Test/Check"), kView_NoOptions,
                                      kBind_Fixed, kCheckButton, "A check"));
        button->SetGraphic(std::make_unique<CButtonGraphic>(button, kButtonStyle_Check, "A check"));
        button->SetValue(kOn);
        fWindow->Start();
    }
    bool Ask(void* window, int project, const char* event, HostDescriptor& out)
    {
        return ViewInfoCallback(window, project, &out, Host::KeyOfName(event)) != 0;
    }
    // The description of the front window, which is freed as a host frees it.
    Json Describe()
    {
        HostDescriptor out = nullptr;
        EXPECT_TRUE(Ask(nullptr, 77, "getViewInfo", out));
        Json json = Host::JsonOf(out);
        Host::DescriptorSuite()->Free(out);
        return json;
    }
    void TearDown() override
    {
        fWindow.reset();
        EXPECT_TRUE(Host::ViewInfoHooks().empty());
        EXPECT_EQ(Host::LooseDescriptors(), 0U);
        fPlugin.reset();
        EXPECT_EQ(Host::AcquiredSuites(), 0);
    }

    std::unique_ptr<Plugin> fPlugin = std::make_unique<Plugin>();
    std::unique_ptr<CDialog> fWindow;
};

} // namespace

TEST_F(ViewInfo, IsRegisteredWhileAWindowIsUp)
{
    EXPECT_TRUE(Host::ViewInfoHooks().empty());
    Open();
    ASSERT_EQ(Host::ViewInfoHooks().size(), 1U);
    EXPECT_EQ(Host::ViewInfoHooks()[0].projectIndex, 77);
    EXPECT_EQ(Host::ViewInfoHooks()[0].callback, ViewInfoCallback);
    fWindow->Stop();
    EXPECT_TRUE(Host::ViewInfoHooks().empty());
}

TEST_F(ViewInfo, DescribesTheWindowAndItsViews)
{
    Open();
    fWindow->MoveWindow({100, 200});
    const Json json = Describe();
    const Platform::PixelRect frame = fWindow->GetWindowFrame();
    EXPECT_EQ(json["filter"], "A plug-in");
    EXPECT_EQ(json["bounds"], (Json{frame.left, frame.top, frame.right, frame.bottom}));
    EXPECT_EQ(json["Nm  "], "A window");
    EXPECT_EQ(json["Vsbl"], true);
    EXPECT_EQ(json["minimized"], false);
    ASSERT_EQ(json["subViews"].size(), 1U);
    Json button = json["subViews"][0];
    const Platform::PixelRect content = fWindow->GetWindowBounds();
    EXPECT_EQ(button["globalBounds"],
              (Json{content.left + 10, content.top + 20, content.left + 60, content.top + 44}));
    button.erase("globalBounds");
    EXPECT_EQ(button.dump(),
              R"({"id":"Test/Check","Nm  ":"A check","Vsbl":true,"enab":true,"minimized":false,)"
              R"("maximized":false,"isCapable":false,"isTarget":false,"Fcs ":false,)"
              R"("Type":"button","Knd ":"checkButton","Vl  ":"on","Stte":"normal","Styl":"check"})")
        << "a leaf has no subViews";
    auto& pressed = dynamic_cast<CButton&>(*fWindow->GetChild(0));
    pressed.SetKind(EButtonKind{4});
    EXPECT_EQ(Describe()["subViews"][0]["Knd "], "unexpected button kind");
}

TEST_F(ViewInfo, IsRefusedForWhatIsntThere)
{
    Open();
    void* const gone = fWindow->GetSystemWindow();
    CDialog other{CWindowPlan{}};
    const struct {
        const char* words;
        void* window;
        int project;
        const char* event;
    } rows[] = {
        {"a project that is gone", nullptr, 78, "getViewInfo"},
        {"another event", nullptr, 77, "event"},
        {"a window that nobody knows", &other, 77, "getViewInfo"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.words);
        HostDescriptor out = nullptr;
        EXPECT_FALSE(Ask(row.window, row.project, row.event, out));
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_EQ(ViewInfoCallback(nullptr, 77, nullptr, Host::KeyOfName("getViewInfo")), 0);
    fWindow->Stop();
    HostDescriptor out = nullptr;
    EXPECT_FALSE(Ask(gone, 77, "getViewInfo", out)) << "a window that has been closed";
}

TEST_F(ViewInfo, EveryCallOfTheHostMayFailAndNothingIsLeft)
{
    static const HostSuiteTable table{AcquireFailing, Host::BasicSuite()->suites->ReleaseSuite};
    static const HostBasicSuite failing{nullptr, &table};
    fPlugin->fBasic = &failing;
    Open();
    bool isDescribed = false;
    for (gFailing = 0; !isDescribed; ++gFailing) {
        SCOPED_TRACE(gFailing);
        gCalls = 0;
        HostDescriptor out = nullptr;
        isDescribed = Ask(nullptr, 77, "getViewInfo", out);
        EXPECT_EQ(isDescribed, gCalls <= gFailing);
        EXPECT_EQ(out != nullptr, isDescribed);
        Host::DescriptorSuite()->Free(out);
        EXPECT_EQ(Host::LooseDescriptors(), 0U);
    }
    EXPECT_GT(gFailing, 20);
    gFailing = -1;
}

TEST_F(ViewInfo, WithoutSuitesNothingIsRegisteredOrDescribed)
{
    static const HostBasicSuite bare{nullptr, nullptr};
    for (const HostBasicSuite* suite : {static_cast<const HostBasicSuite*>(nullptr), &bare}) {
        SCOPED_TRACE(suite == nullptr ? "no basic suite" : "one without suites");
        fPlugin->fBasic = suite;
        Open();
        EXPECT_TRUE(Host::ViewInfoHooks().empty());
        HostDescriptor out = nullptr;
        EXPECT_FALSE(Ask(nullptr, 77, "getViewInfo", out));
        fWindow.reset();
    }
}

TEST_F(ViewInfo, TheHostsTurnsCarryItsEventsToTheWindow)
{
    Open();
    int turns = 0;
    const Host::HostTurn turn([&](HostInputEvent& event) {
        event = {fWindow->GetSystemWindow(), 0x0010 /* close */, 0, 0, 0};
        return ++turns == 1;
    });
    EXPECT_EQ(fWindow->Run(), 0);
    EXPECT_GE(turns, 1);
}

// The pictures of controls can be seen on the windows of all four themes, and what must be told
// apart can be.
#include "images/icons/resource_data_provider.h"
#include "images/pictures/picture_states.h"
#include "support/contrast.h"
#include "support/testing.h"

#include <initializer_list>

namespace Kesto {
namespace {

using Testing::Contrast;
using Testing::Luminance;

// The grey of each theme's windows, and of the plate on which alerts put their signs.
constexpr int kWindows[] = {0xF0, 0xB8, 0x53, 0x32};
constexpr int kPlates[] = {0xFF, 0xF2, 0x26, 0x26};

constexpr double kClear = 3.0;     // for all that carries meaning
constexpr double kInactive = 1.6;  // for the same where it can't be used now
constexpr double kStructure = 1.3; // for tracks, grooves and panes
constexpr double kFaint = 1.15;    // for the same where they can't be used now

struct StateRow {
    EPictureState fState;
    const char* fWords;
};
constexpr StateRow kStates[] = {{kPicture_Normal, "normal"},
                                {kPicture_Pressed, "pressed"},
                                {kPicture_Rollover, "under the mouse"},
                                {kPicture_Disabled, "disabled"},
                                {kPicture_Inactive, "inactive"}};

bool IsUsable(EPictureState state)
{
    return state != kPicture_Disabled && state != kPicture_Inactive;
}

// The luminance of each pixel of a picture on a grey window.
std::vector<double> Seen(const CMemoryPixmap& pixmap, int window)
{
    CPixView view;
    pixmap.GetView(view);
    const std::int32_t colours = view.planeCount < 3 ? 1 : 3;
    const bool hasAlpha = view.planeCount % 2 == 0;
    std::vector<double> seen;
    for (std::int32_t y = 0; y < view.height; ++y)
        for (std::int32_t x = 0; x < view.width; ++x) {
            const auto at = [&](std::int32_t plane) {
                return double(view.planePointers[plane][y * view.rowBytes + x]);
            };
            const double alpha = hasAlpha ? at(view.planeCount - 1) / 255 : 1;
            std::array<double, 3> colour;
            for (std::int32_t i = 0; i < 3; ++i)
                colour[static_cast<std::size_t>(i)] =
                    at(i % colours) * alpha + window * (1 - alpha);
            seen.push_back(Luminance(colour));
        }
    return seen;
}

// How many pixels may differ from the rest: the edges of thin lines are never full.
std::size_t Few(EDensity density)
{
    return density == kDensity_Low ? 3 : 12;
}

double ContrastOfAFew(std::vector<double> contrasts, EDensity density)
{
    std::ranges::sort(contrasts, std::greater());
    return contrasts[Few(density)];
}

// How much a picture stands out: a body, which fills its place, from the window; a sign within its
// place.
double ShapeContrast(const CMemoryPixmap& pixmap, int window, EDensity density, bool isBody)
{
    std::vector<double> seen = Seen(pixmap, window);
    if (!isBody) {
        std::ranges::sort(seen);
        return Contrast(seen[Few(density)], seen[seen.size() - 1 - Few(density)]);
    }
    const double grey = window;
    for (double& one : seen)
        one = Contrast(one, Luminance({grey, grey, grey}));
    return ContrastOfAFew(seen, density);
}

bool BeginsWithOneOf(std::string_view name, std::initializer_list<std::string_view> beginnings)
{
    return std::ranges::any_of(beginnings, [&](auto one) { return name.starts_with(one); });
}

double LeastContrast(std::string_view name, EPictureState state)
{
    if (BeginsWithOneOf(name, {"SliderGroove", "SBH_Track", "SBV_Track", "ElkTabBack", "ElkTabFill",
                               "ProgressTrack"}))
        return IsUsable(state) ? kStructure : kFaint;
    return IsUsable(state) ? kClear : kInactive;
}

// Calls check(theme, state, density) for all that a control can be asked to show.
template <class Check>
void ForEachLook(const Check& check)
{
    for (std::int32_t theme = kTheme_Light; theme <= kTheme_Dark; ++theme)
        for (const StateRow& state : kStates)
            for (const EDensity density : {kDensity_Low, kDensity_High}) {
                SCOPED_TRACE(testing::Message()
                             << state.fWords << " in theme " << theme << " at density " << density);
                check(theme, state.fState, density);
            }
}

// The grey below a picture: most are on the window.
int GroundOf(std::string_view name, std::int32_t theme, EPictureState state)
{
    if (name.starts_with("Info"))
        return kPlates[theme];
    if (name.ends_with("ThumbGrip"))
        return !IsUsable(state) ? 0x82 : theme < kTheme_MediumDark ? 0x60 : 0xB4;
    return kWindows[theme];
}

TEST(ModuleIcons, StandOutFromTheWindowsOfAllThemes)
{
    for (const std::string& name : CResourceDataProvider::Get().GetNames()) {
        if (name == "About")
            continue; // it brings a ground of its own
        SCOPED_TRACE(name);
        const bool isBody =
            BeginsWithOneOf(name, {"Push", "SliderGroove", "SliderFill", "SBH_T", "SBV_T",
                                   "ElkTabFront", "ElkTabBack", "ElkTabFill", "Progress"});
        ForEachLook([&](std::int32_t theme, EPictureState state, EDensity density) {
            if (name.starts_with("Alpha_") && state != kPicture_Normal)
                return; // cursors have no states
            CPictureStates states;
            ASSERT_TRUE(states.LoadPictures(name, theme));
            EXPECT_GE(ShapeContrast(*states.Get(state).GetPixmap(density),
                                    GroundOf(name, theme, state), density, isBody),
                      LeastContrast(name, state));
        });
    }
}

TEST(ModuleIcons, ShowWhatIsOnOffAndMixedApart)
{
    constexpr std::pair<const char*, const char*> kPairs[] = {{"CheckOff", "CheckOn"},
                                                              {"CheckOn", "CheckNeutral"},
                                                              {"SmallCheckOff", "SmallCheckOn"},
                                                              {"SmallCheckOn", "SmallCheckNeutral"},
                                                              {"RadioOff", "RadioOn"},
                                                              {"RadioOn", "RadioNeutral"},
                                                              {"SmallRadioOff", "SmallRadioOn"},
                                                              {"SmallRadioOn", "SmallRadioNeutral"},
                                                              {"RoundOff", "RoundOn"},
                                                              {"RoundOn", "RoundNeutral"},
                                                              {"SmallRoundOff", "SmallRoundOn"},
                                                              {"SmallRoundOn", "SmallRoundNeutral"},
                                                              {"RadioOff", "SmallRoundOff"},
                                                              {"RadioOn", "SmallRoundOn"},
                                                              {"DiscloseRight", "DiscloseDown"},
                                                              {"DiscloseRight", "DiscloseNeutral"},
                                                              {"ToolHot", "ToolOn"}};
    for (const auto& [name, otherName] : kPairs) {
        SCOPED_TRACE(testing::Message() << name << " and " << otherName);
        ForEachLook([&, first = name, second = otherName](std::int32_t theme, EPictureState state,
                                                          EDensity density) {
            CPictureStates one, other;
            one.LoadPictures(first, theme);
            other.LoadPictures(second, theme);
            const auto a = Seen(*one.Get(state).GetPixmap(density), kWindows[theme]);
            const auto b = Seen(*other.Get(state).GetPixmap(density), kWindows[theme]);
            ASSERT_EQ(a.size(), b.size());
            std::vector<double> contrasts(a.size());
            std::ranges::transform(a, b, contrasts.begin(), Contrast);
            EXPECT_GE(ContrastOfAFew(contrasts, density), IsUsable(state) ? kClear : kInactive);
        });
    }
}

} // namespace
} // namespace Kesto

// Shows what is in the icon store of this build: a table of all pictures, or a sheet with what
// controls show of every one of them, at both densities on the windows of the four themes.
#include "contact_sheet/contact_sheet.h"
#include "foundation/errors/exceptions.h"
#include "images/icons/resource_data_provider.h"
#include "images/pictures/picture_states.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

using namespace Kesto;

namespace {

struct State {
    EStateSlot fSlot;
    const char* fName;
};

constexpr State kStates[] = {{kStateSlot_Normal, "normal"},
                             {kStateSlot_Pressed, "pressed"},
                             {kStateSlot_Inactive, "inactive"},
                             {kStateSlot_Dark, "dark"}};

constexpr EDensity kDensities[] = {kDensity_Low, kDensity_High};

// The colour of the windows of each theme.
constexpr std::uint32_t kWindows[] = {0xF0F0F0, 0xB8B8B8, 0x535353, 0x323232};

constexpr std::int32_t kSheetWidth = 1600;
constexpr std::int32_t kGap = 8; // pixels around all that is laid out

void List()
{
    CResourceDataProvider& store = CResourceDataProvider::Get();
    for (const std::string& name : store.GetNames()) {
        std::int32_t width = 0, height = 0, x = 0, y = 0;
        store.GetPictureSize(name, kResolution_Low, kStateSlot_Normal, width, height);
        store.GetHotSpot(name, x, y);
        std::printf("%-20s %3d x %3d", name.c_str(), width, height);
        if (x != 0 || y != 0)
            std::printf("  hot spot %d,%d", x, y);
        for (const State& state : kStates) {
            std::uint32_t low = 0, high = 0;
            const std::byte* data;
            store.GetPicture(name, kResolution_Low, state.fSlot, low, data);
            store.GetPicture(name, kResolution_High, state.fSlot, high, data);
            if (low != 0 || high != 0)
                std::printf("  %s %u+%u", state.fName, low, high);
        }
        std::printf("\n");
    }
}

// One name: its label, and below it a pane for each theme with the pictures that its states show,
// side by side.
class Card {
public:
    Card(const std::string& name, const ContactSheet& ruler)
        : fName(name), fWidth(ruler.LabelWidth(name))
    {
        for (std::int32_t theme = kTheme_Light; theme <= kTheme_Dark; ++theme) {
            Pane& pane = fPanes.emplace_back();
            pane.fStates.LoadPictures(name, theme);
            Fill(pane);
            fWidth = std::max(fWidth, pane.fWidth);
        }
    }

    std::int32_t Width() const { return fWidth; }
    std::int32_t Height() const
    {
        return kLabel + static_cast<std::int32_t>(fPanes.size()) * PaneHeight();
    }

    void Draw(ContactSheet& sheet, std::int32_t left, std::int32_t top) const
    {
        sheet.Label(fName, left, top + ContactSheet::kLabelHeight);
        top += kLabel;
        for (std::size_t theme = 0; theme < fPanes.size(); ++theme) {
            sheet.Fill({left, top, left + fWidth, top + PaneHeight()}, kWindows[theme]);
            std::int32_t x = left + kGap;
            for (const CMemoryPixmap* pixmap : fPanes[theme].fPixmaps) {
                CPixView view;
                pixmap->GetView(view);
                sheet.Draw(view, x, top + kGap);
                x += pixmap->GetWidth() + kGap;
            }
            top += PaneHeight();
        }
    }

private:
    static constexpr std::int32_t kLabel = ContactSheet::kLabelHeight + 5;

    struct Pane {
        CPictureStates fStates;
        std::vector<const CMemoryPixmap*> fPixmaps; // each picture once
        std::int32_t fWidth = kGap;
    };

    void Fill(Pane& pane)
    {
        for (const EDensity density : kDensities)
            for (std::uint32_t state = 0; state < kPictureStateCount; ++state) {
                const CDualPicture& picture = pane.fStates.Get(static_cast<EPictureState>(state));
                const CMemoryPixmap* const pixmap = picture.GetPixmap(density);
                if (pixmap == nullptr || std::ranges::count(pane.fPixmaps, pixmap) != 0)
                    continue;
                pane.fWidth += pixmap->GetWidth() + kGap;
                fPictureHeight = std::max(fPictureHeight, pixmap->GetHeight());
                pane.fPixmaps.push_back(pixmap);
            }
    }

    std::int32_t PaneHeight() const { return fPictureHeight + 2 * kGap; }

    std::string fName;
    std::int32_t fWidth;
    std::int32_t fPictureHeight = 0;
    std::vector<Pane> fPanes;
};

// Calls place(card, left, top) for each card, in lines of the sheet's width. Returns the height of
// all.
template <class Place>
std::int32_t LayOut(const std::vector<Card>& cards, Place place)
{
    std::int32_t left = kGap, top = kGap, lineHeight = 0;
    for (const Card& card : cards) {
        if (left > kGap && left + card.Width() + kGap > kSheetWidth) {
            left = kGap;
            top += lineHeight + 2 * kGap;
            lineHeight = 0;
        }
        place(card, left, top);
        left += card.Width() + 2 * kGap;
        lineHeight = std::max(lineHeight, card.Height());
    }
    return top + lineHeight + kGap;
}

bool WriteSheet(const std::string& path)
{
    const ContactSheet ruler(1, 1, 0);
    std::vector<Card> cards;
    for (const std::string& name : CResourceDataProvider::Get().GetNames())
        cards.emplace_back(name, ruler);
    const std::int32_t height = LayOut(cards, [](const Card&, std::int32_t, std::int32_t) {});
    ContactSheet sheet(kSheetWidth, height, 0xFFFFFF);
    LayOut(cards, [&](const Card& card, std::int32_t left, std::int32_t top) {
        card.Draw(sheet, left, top);
    });
    return sheet.Write(path);
}

// Lists, or writes the sheet; false after a message.
bool Run(const std::string& path)
{
    if (CResourceDataProvider::Get().GetNames().empty()) {
        std::fprintf(stderr, "icons: this build has no icon store\n");
        return false;
    }
    if (path.empty()) {
        List();
        return true;
    }
    if (!WriteSheet(path)) {
        std::fprintf(stderr, "icons: %s could not be written; is the folder there and writable?\n",
                     path.c_str());
        return false;
    }
    std::printf("%s\n", path.c_str());
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app{"Lists the pictures of the icon store, or writes a contact sheet of them.",
                 "icons"};
    app.footer(
        "Without OUT.png: a line for each picture, with its size, its hot spot if it is a "
        "cursor, and the bytes of\n"
        "each state at single and double density. With it: what controls show of all pictures, "
        "normal, pressed and\n"
        "inactive, at both densities on the windows of the four themes.\n"
        "A plug-in has pictures of its own by ICONS of sidecar_add_plugin.");
    app.set_version_flag("--version", "icons " SIDECAR_VERSION);
    std::string path;
    app.add_option("OUT.png", path, "The contact sheet to write");
    try {
        app.parse(argc, argv);
        return Run(path) ? 0 : 1;
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 1;
    } catch (const CException& failure) {
        std::fprintf(stderr, "icons: %s\n", failure.ErrorText().CStr());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "icons: %s\n", failure.what());
    }
    return 1;
}

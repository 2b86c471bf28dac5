// Shows what is in the icon store of this build: a table of all pictures, or a sheet with every one
// of them at both densities, on a light and on a dark window.
#include "contact_sheet/contact_sheet.h"
#include "foundation/errors/exceptions.h"
#include "foundation/streams/block_container.h"
#include "images/icons/resource_data_provider.h"
#include "images/png/png_decoder.h"
#include "pixels/pixmaps/memory_pixmap.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

using namespace Kesto;

namespace {

struct State {
    EStateSlot fSlot;
    const char* fName;
};

constexpr State kStates[] = {{kStateSlot_Normal, "normal"},
                             {kStateSlot_Rollover, "rollover"},
                             {kStateSlot_Pressed, "pressed"},
                             {kStateSlot_Inactive, "inactive"},
                             {kStateSlot_Dark, "dark"}};

constexpr EResolution kDensities[] = {kResolution_Low, kResolution_High};

// How a window of one kind looks, and the states that it shows.
struct Window {
    std::uint32_t fColour;
    std::vector<EStateSlot> fSlots;
};

const Window kWindows[] = {
    {0xF0F0F0, {kStateSlot_Normal, kStateSlot_Rollover, kStateSlot_Pressed, kStateSlot_Inactive}},
    {0x323232, {kStateSlot_Dark, kStateSlot_Pressed, kStateSlot_Inactive}}};

constexpr std::int32_t kSheetWidth = 1600;
constexpr std::int32_t kGap = 8; // pixels around all that is laid out

using Pixmap = std::unique_ptr<CMemoryPixmap>;

// Null for a picture that the store does not have.
Pixmap Load(const std::string& name, EResolution density, EStateSlot slot)
{
    std::uint32_t size;
    const std::byte* data;
    if (!CResourceDataProvider::Get().GetPicture(name, density, slot, size, data))
        return nullptr;
    CMemoryBlock bytes;
    CopyToBlock(bytes, {data, size});
    CBlockContainer stream(&bytes);
    return CPNGDecoder().Decode(stream);
}

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

// One name: its label, and below it a pane for each window with the pictures side by side.
class Card {
public:
    Card(const std::string& name, const ContactSheet& ruler)
        : fName(name), fWidth(ruler.LabelWidth(name))
    {
        for (const Window& window : kWindows) {
            Pane& pane = fPanes.emplace_back(Pane{window.fColour, {}, kGap});
            for (const EResolution density : kDensities)
                for (const EStateSlot slot : window.fSlots)
                    Add(pane, density, slot);
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
        for (const Pane& pane : fPanes) {
            sheet.Fill({left, top, left + fWidth, top + PaneHeight()}, pane.fColour);
            std::int32_t x = left + kGap;
            for (const Pixmap& pixmap : pane.fPixmaps) {
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
        std::uint32_t fColour;
        std::vector<Pixmap> fPixmaps;
        std::int32_t fWidth;
    };

    // A picture without one for the dark shows its normal one there.
    void Add(Pane& pane, EResolution density, EStateSlot slot)
    {
        Pixmap pixmap = Load(fName, density, slot);
        if (pixmap == nullptr && slot == kStateSlot_Dark)
            pixmap = Load(fName, density, kStateSlot_Normal);
        if (pixmap == nullptr)
            return;
        pane.fWidth += pixmap->GetWidth() + kGap;
        fPictureHeight = std::max(fPictureHeight, pixmap->GetHeight());
        pane.fPixmaps.push_back(std::move(pixmap));
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
    app.footer("Without OUT.png: a line for each picture, with its size, its hot spot if it is a "
               "cursor, and the bytes of\n"
               "each state at single and double density. With it: all pictures and states at both "
               "densities, on a light\n"
               "and on a dark window.\n"
               "To add a picture, see resources/icons/icons.list.");
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

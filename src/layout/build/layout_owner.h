// LayoutOwner, which has a layout text turned into views, and what its builders know of that.
#pragma once

#include "foundation/base/geometry.h"
#include "layout/build/property_reader.h"
#include "layout/build/view_layout_record.h"

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace Kesto {

class CView;
class CVexGenerator;
class CWindow;

class LayoutOwner {
public:
    LayoutOwner();
    ~LayoutOwner();
    LayoutOwner(const LayoutOwner&) = delete;
    LayoutOwner& operator=(const LayoutOwner&) = delete;

    // What surrounds the view in work: its own properties and what the blocks around it assign.
    CPropertyReader Properties() const;
    // What is at the top of the text; for values that a builder has put there itself.
    CPropertyReader RootProperties() const;

    // Defines a name for the whole text. Nothing happens when no text is being read.
    void DefineVariable(const VexName& name, std::int32_t integer);
    void DefineVariable(std::string_view name, std::string_view text);

    // The window that the latest text made; null if it made none, once it has been taken, and for
    // one that is deleted by what it runs below (kWin_AutoDelete).
    std::unique_ptr<CWindow> TakeWindow();

    // --- For whoever loads a text, to be set before.

    CView* fParent = nullptr;        // in whose window's front one of the text lies
    CView* fDefaultParent = nullptr; // of panes in no view; a window of the text replaces it
    CView* fExistingView = nullptr;  // takes the place of the window that the text would make
    CView* fCurrentView = nullptr; // what panes are measured for; a window of the text replaces it
    std::optional<Point> fTarget;  // the natural size goes there, and nothing is made
    CPropertyReader::Listener fKeyListener;
    std::function<void(std::string_view className, CView& view)>
        fViewListener; // each as it is made

    // --- For the generator and the builders.

    ViewLayoutRecord fLayoutRecord;
    CView* fRootView = nullptr;
    std::unique_ptr<CWindow> fWindow; // made by the text
    std::unique_ptr<CVexGenerator> fGenerator;
};

// Reads a text and makes its views. Returns the window, or else the outermost view, which belongs
// to its parent; null for a null text, for one whose outermost view is of an unknown class or has
// nowhere to be, and with a target. A window belongs to the owner until it is taken. Throws what
// CRapidViewScope::Parse and the constructors of views throw; then a window that was made is
// deleted, and the owner as it was.
CView* LoadLayoutFromText(LayoutOwner& owner, const char* text);

// The same for a text among this module's resources. Returns null when there is none.
CView* LoadLayoutResource(LayoutOwner& owner, std::uint16_t id);
CView* LoadLayoutResource(LayoutOwner& owner, std::string_view name);

} // namespace Kesto

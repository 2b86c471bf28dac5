// The dialog of a plug-in, as far as the plug-in frame knows it; the dialogs above this layer
// implement it.
#pragma once

#include <string_view>

namespace Kesto {

class CView;
struct PluginSettings;

// The operations are the steps of a run, in their order. One that fails throws, and the run ends.
class CPluginDialog {
public:
    virtual ~CPluginDialog() = default;

    // Has the window open where the settings say.
    virtual void TakeState(const PluginSettings&) {}

    // Has the window take the modal style.
    virtual void UseModalStyle() {}

    // Shows the window and waits for the user. True: accepted; false: cancelled, closed, or,
    // unseen, where nobody could ever answer it.
    virtual bool RunModal() = 0;

    // Leaves the state of the window in the settings, for the next run.
    virtual void StoreState(PluginSettings&) {}

    // The name that the layout has for a view's class, for descriptions; "" if it has none.
    virtual std::string_view ClassNameOf(const CView&) const { return {}; }
};

} // namespace Kesto

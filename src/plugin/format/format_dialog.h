// The dialog of a format, as far as the plug-in frame knows it; the dialogs above this layer
// implement it.
#pragma once

namespace Kesto {

class CFormatDialog {
public:
    virtual ~CFormatDialog() = default;

    // Shows the dialog and waits for the user. True: accepted, false: cancelled.
    virtual bool RunModal() = 0;
};

} // namespace Kesto

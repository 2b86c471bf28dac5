// What a plug-in's dialog asks of the preview in it and of the panel that zooms it. Their classes
// lie above.
#pragma once

namespace Kesto {
class CTaskStack;
}

namespace Project {

class PDialog;

// A base of preview panes, beside CPane.
class PPreview {
public:
    // Tells the pane whose it is, before anything else is asked of it; has it begin its work.
    virtual void SetDialog(PDialog& dialog) = 0;
    virtual void StartPreview() = 0;

    // Display pixels for each pixel of the picture.
    virtual double GetScale() const = 0;
    virtual void SetScale(double scale) = 0;

    // One step. What the flag means is the pane's matter; commands give 0.
    virtual void ZoomIn(int flag) = 0;
    virtual void ZoomOut(int flag) = 0;

protected:
    ~PPreview() = default;
};

// A base of zoom panels, beside CPane.
class PZoomSteps {
public:
    // The stack that its changes go to, which outlives it.
    virtual void SetTaskStack(Kesto::CTaskStack& stack) = 0;

protected:
    ~PZoomSteps() = default;
};

} // namespace Project

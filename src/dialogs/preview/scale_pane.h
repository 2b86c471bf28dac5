// CScalePane, a pane that scrolls over a picture shown at a scale.
//
// The scale counts display pixels, those of the device, for each pixel of the picture, whatever the
// user interface's own scale is.
#pragma once

#include "controls/scrolling/scroll_pane.h"

namespace Kesto {

class CScalePane : public CScrollPane {
public:
    explicit CScalePane(const Rect& frame = {}, CObjID id = {},
                        std::uint32_t options = kView_NoOptions,
                        std::uint32_t binding = kBind_Fixed);

    double GetImageScale() const { return fImageScale; }

    // Rounded as GetRoundedScale says; what was in the middle stays there. ImageScaleChanged is
    // called when the scale has changed.
    virtual void SetImageScale(double scale);

    // In pixels of the picture.
    void SetPictureSize(std::int32_t width, std::int32_t height);
    PixelPoint GetPictureSize() const { return fPictureSize; }

    // The pane's size in display pixels, and what of the picture is in its middle.
    PixelPoint GetDisplaySize() const;
    Point GetPictureCenter() const;

    // In units of the pane's space, where the picture's top left corner is at zero.
    Rect PictureToLocal(const PixelRect& picture) const;

    // A change of the user interface's scale leaves the picture's pixels the size that they are.
    void UIScaleChanged() override;

protected:
    virtual double GetRoundedScale(double scale) const { return scale; }
    virtual void ImageScaleChanged() {} // hook

private:
    void ResetExtent();
    void CenterPicture(const Point& picture);
    double UnitsOfPixel() const; // of the picture

    double fImageScale = 1.0;
    PixelPoint fPictureSize;
};

template <>
class CPaneBuilder<CScalePane> : public CPaneBuilder<CScrollPane> {
public:
    using CPaneBuilder<CScrollPane>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

} // namespace Kesto

#include "formats/electricimage/frame_dialog.h"

#include "controls/fields/edit_number.h"
#include "controls/text/static_text.h"
#include "dialogs/plugin_dialog/dialog_builder.h"
#include "formats/electricimage/choose_frame.h"
#include "foundation/localization/localize.h"
#include "foundation/localization/marks.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace Project {

using namespace Kesto;

namespace {

const CObjID kFrameNumber{"ElectricImage/FrameNumber"};
const CObjID kNumberOfImages{"ElectricImage/NumberOfImages"};

CText FramesText()
{
    CText text("$$$/OrlenPlugin/ElectricImage/NumFrames=This file contains ^0 frames.");
    Localize(text);
    ReplaceArgument(text, 0, std::to_string(gFrameCount));
    return text;
}

} // namespace

std::unique_ptr<PDialog> PDialogElectricImage::Make()
{
    return LoadDialog("ELECTRICIMAGE.VEX", [](const CWindowPlan& plan) {
        return std::make_unique<PDialogElectricImage>(plan);
    });
}

CEditNumber* PDialogElectricImage::FrameField() const
{
    return dynamic_cast<CEditNumber*>(FindChild(kFrameNumber, true));
}

void PDialogElectricImage::CreateViews()
{
    PDialog::CreateViews();
    if (auto* const label = dynamic_cast<CStaticText*>(FindChild(kNumberOfImages, true)))
        label->SetText(FramesText());
    SetValuesFromSettings(false);
}

void PDialogElectricImage::AfterShow()
{
    PDialog::AfterShow();
    CEditNumber* const field = FrameField();
    if (field != nullptr && field->BecomeBullseye(false))
        field->SelectContents();
}

void PDialogElectricImage::SetValuesFromSettings(bool redraw)
{
    CEditNumber* const field = FrameField();
    if (field == nullptr || gFrameResult == nullptr)
        return;
    field->SetValueAndRange(*gFrameResult, 1.0, gFrameCount);
    if (redraw && IsVisible())
        UpdateNow();
}

// The field's text counts, also when it hasn't been committed yet.
bool PDialogElectricImage::Accept()
{
    const CEditNumber* const field = FrameField();
    if (field != nullptr && gFrameResult != nullptr) {
        const double last = std::max(gFrameCount, 1U);
        *gFrameResult = static_cast<uint32_t>(std::clamp(std::round(field->ReadText()), 1.0, last));
    }
    return PDialog::Accept();
}

} // namespace Project

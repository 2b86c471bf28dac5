#include "drawing/tools/picture_names.h"

#include <iterator>

namespace Kesto {
namespace {

struct SRow {
    EToolPicture picture;
    std::string_view name;
};

// A picture's number is its row.
constexpr SRow kPictureRows[] = {
    {kTool_About, "About.png"},
    {kTool_InfoNote, "InfoNote.png"},
    {kTool_InfoNoteSmall, "InfoNoteSmall.png"},
    {kTool_InfoQuestion, "InfoQuestion.png"},
    {kTool_InfoQuestionSmall, "InfoQuestionSmall.png"},
    {kTool_InfoStop, "InfoStop.png"},
    {kTool_InfoStopSmall, "InfoStopSmall.png"},
    {kTool_InfoWarning, "InfoWarning.png"},
    {kTool_InfoWarningSmall, "InfoWarningSmall.png"},
    {kTool_CheckOff, "CheckOff.png"},
    {kTool_CheckOn, "CheckOn.png"},
    {kTool_CheckNeutral, "CheckNeutral.png"},
    {kTool_SmallCheckOff, "SmallCheckOff.png"},
    {kTool_SmallCheckOn, "SmallCheckOn.png"},
    {kTool_SmallCheckNeutral, "SmallCheckNeutral.png"},
    {kTool_RadioOff, "RadioOff.png"},
    {kTool_RadioOn, "RadioOn.png"},
    {kTool_RadioNeutral, "RadioNeutral.png"},
    {kTool_SmallRadioOff, "SmallRadioOff.png"},
    {kTool_SmallRadioOn, "SmallRadioOn.png"},
    {kTool_SmallRadioNeutral, "SmallRadioNeutral.png"},
    {kTool_RoundOff, "RoundOff.png"},
    {kTool_RoundOn, "RoundOn.png"},
    {kTool_RoundNeutral, "RoundNeutral.png"},
    {kTool_SmallRoundOff, "SmallRoundOff.png"},
    {kTool_SmallRoundOn, "SmallRoundOn.png"},
    {kTool_SmallRoundNeutral, "SmallRoundNeutral.png"},
    {kTool_PushLeft, "PushLeft.png"},
    {kTool_PushMid, "PushMid.png"},
    {kTool_PushRight, "PushRight.png"},
    {kTool_PushOnLeft, "PushOnLeft.png"},
    {kTool_PushOnMid, "PushOnMid.png"},
    {kTool_PushOnRight, "PushOnRight.png"},
    {kTool_PushDefaultLeft, "PushDefaultLeft.png"},
    {kTool_PushDefaultMid, "PushDefaultMid.png"},
    {kTool_PushDefaultRight, "PushDefaultRight.png"},
    {kTool_ToolHot, "ToolHot.png"},
    {kTool_ToolOn, "ToolOn.png"},
    {kTool_ToolOverflow, "ToolOverflow.png"},
    {kTool_ToolGripH, "ToolGripH.png"},
    {kTool_ToolGripV, "ToolGripV.png"},
    {kTool_DiscloseRight, "DiscloseRight.png"},
    {kTool_DiscloseLeft, "DiscloseLeft.png"},
    {kTool_DiscloseDown, "DiscloseDown.png"},
    {kTool_DiscloseUp, "DiscloseUp.png"},
    {kTool_DiscloseNeutral, "DiscloseNeutral.png"},
    {kTool_DropArrow, "DropArrow.png"},
    {kTool_SmallDropArrow, "SmallDropArrow.png"},
    {kTool_PopupArrows, "PopupArrows.png"},
    {kTool_SmallPopupArrows, "SmallPopupArrows.png"},
    {kTool_FlyoutMark, "FlyoutMark.png"},
    {kTool_MenuArrow, "MenuArrow.png"},
    {kTool_MenuCheck, "MenuCheck.png"},
    {kTool_SpinUp, "SpinUp.png"},
    {kTool_SpinDown, "SpinDown.png"},
    {kTool_SortUp, "SortUp.png"},
    {kTool_SortDown, "SortDown.png"},
    {kTool_SliderGrooveHLeft, "SliderGrooveHLeft.png"},
    {kTool_SliderGrooveHMid, "SliderGrooveHMid.png"},
    {kTool_SliderGrooveHRight, "SliderGrooveHRight.png"},
    {kTool_SliderGrooveVTop, "SliderGrooveVTop.png"},
    {kTool_SliderGrooveVMid, "SliderGrooveVMid.png"},
    {kTool_SliderGrooveVBottom, "SliderGrooveVBottom.png"},
    {kTool_SliderFillHLeft, "SliderFillHLeft.png"},
    {kTool_SliderFillHMid, "SliderFillHMid.png"},
    {kTool_SliderFillHRight, "SliderFillHRight.png"},
    {kTool_SliderFillVTop, "SliderFillVTop.png"},
    {kTool_SliderFillVMid, "SliderFillVMid.png"},
    {kTool_SliderFillVBottom, "SliderFillVBottom.png"},
    {kTool_SliderThumbDown, "SliderThumbDown.png"},
    {kTool_SliderThumbUp, "SliderThumbUp.png"},
    {kTool_SliderThumbRight, "SliderThumbRight.png"},
    {kTool_SliderThumbLeft, "SliderThumbLeft.png"},
    {kTool_SliderThumbRound, "SliderThumbRound.png"},
    {kTool_SliderTickH, "SliderTickH.png"},
    {kTool_SliderTickV, "SliderTickV.png"},
    {kTool_Dial, "Dial.png"},
    {kTool_DialHub, "DialHub.png"},
    {kTool_DialFace, "DialFace.png"},
    {kTool_SBHTrackLeft, "SBH_TrackLeft.png"},
    {kTool_SBHTrackMid, "SBH_TrackMid.png"},
    {kTool_SBHTrackRight, "SBH_TrackRight.png"},
    {kTool_SBHThumbLeft, "SBH_ThumbLeft.png"},
    {kTool_SBHThumbMid, "SBH_ThumbMid.png"},
    {kTool_SBHThumbRight, "SBH_ThumbRight.png"},
    {kTool_SBHThumbGrip, "SBH_ThumbGrip.png"},
    {kTool_SBVTrackTop, "SBV_TrackTop.png"},
    {kTool_SBVTrackMid, "SBV_TrackMid.png"},
    {kTool_SBVTrackBottom, "SBV_TrackBottom.png"},
    {kTool_SBVThumbTop, "SBV_ThumbTop.png"},
    {kTool_SBVThumbMid, "SBV_ThumbMid.png"},
    {kTool_SBVThumbBottom, "SBV_ThumbBottom.png"},
    {kTool_SBVThumbGrip, "SBV_ThumbGrip.png"},
    {kTool_SBHArrowLeft, "SBH_ArrowLeft.png"},
    {kTool_SBHArrowRight, "SBH_ArrowRight.png"},
    {kTool_SBVArrowUp, "SBV_ArrowUp.png"},
    {kTool_SBVArrowDown, "SBV_ArrowDown.png"},
    {kTool_SizeBox, "SizeBox.png"},
    {kTool_SizeBarGripH, "SizeBarGripH.png"},
    {kTool_SizeBarGripV, "SizeBarGripV.png"},
    {kTool_CloseBox, "CloseBox.png"},
    {kTool_MinimizeBox, "MinimizeBox.png"},
    {kTool_MaximizeBox, "MaximizeBox.png"},
    {kTool_RestoreBox, "RestoreBox.png"},
    {kTool_ZoomDec, "ZoomDec.png"},
    {kTool_ZoomInc, "ZoomInc.png"},
    {kTool_ElkTabFrontLeft, "ElkTabFrontLeft.png"},
    {kTool_ElkTabFrontCont, "ElkTabFrontCont.png"},
    {kTool_ElkTabFrontRight, "ElkTabFrontRight.png"},
    {kTool_ElkTabBackLeft, "ElkTabBackLeft.png"},
    {kTool_ElkTabBackCont, "ElkTabBackCont.png"},
    {kTool_ElkTabBackRight, "ElkTabBackRight.png"},
    {kTool_ElkTabFill, "ElkTabFill.png"},
    {kTool_ElkTabClose, "ElkTabClose.png"},
    {kTool_ElkTabMenu, "ElkTabMenu.png"},
    {kTool_ProgressTrackLeft, "ProgressTrackLeft.png"},
    {kTool_ProgressTrackMid, "ProgressTrackMid.png"},
    {kTool_ProgressTrackRight, "ProgressTrackRight.png"},
    {kTool_ProgressFillLeft, "ProgressFillLeft.png"},
    {kTool_ProgressFillMid, "ProgressFillMid.png"},
    {kTool_ProgressFillRight, "ProgressFillRight.png"},
};

constexpr bool PicturesStandAtTheirNumbers()
{
    for (std::size_t row = 0; row < std::size(kPictureRows); ++row)
        if (kPictureRows[row].picture != row)
            return false;
    return std::size(kPictureRows) == kToolPictureCount;
}
static_assert(PicturesStandAtTheirNumbers());

} // namespace

std::string_view PictureName(EToolPicture picture)
{
    return picture < kToolPictureCount ? kPictureRows[picture].name : std::string_view();
}

} // namespace Kesto

// Which frame of a file with several the user wants.
#pragma once

#include "lumograph/lumograph.h"

#include <cstdint>
#include <memory>

namespace Kesto {
class CPluginDialog;
}

namespace Project {

// What passes between the reader and the frame dialog; set before the dialog runs and valid while
// it does.
extern uint32_t gFrameCount;   // frames in the file
extern uint32_t* gFrameResult; // the reader's frame number, from 1
extern HostFormatRecord* gFrameRecord;

// Asks for a frame by way of the plug-in at work. Returns 0 when one was accepted, with its number
// in `frame`, else -128. `frame` comes in as the frame that is offered first. Throws when the
// dialog can't be built.
int16_t ChooseFrame(HostFormatRecord* record, uint32_t frameCount, uint32_t* frame);

// Who builds the frame dialog: PDialogElectricImage::Make, until somebody else is set.
using FrameDialogMaker = std::unique_ptr<Kesto::CPluginDialog> (*)();
FrameDialogMaker GetFrameDialogMaker();

// Installs another maker and returns the one before.
FrameDialogMaker SetFrameDialogMaker(FrameDialogMaker maker);

} // namespace Project

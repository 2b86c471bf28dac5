// A program that begins with nothing, runs the frame dialog once and ends: registration, libraries,
// fonts and tools count too.
#include "controls/our_dialog.h"
#include "controls/registered_classes.h"
#include "view/process/process.h"

int main()
{
    Kesto::RegisterViewClasses();
    Kesto::CProcess process;
    Bench::RunDialog(process, Bench::FrameDialogText());
}

// Reading a frame of an ElectricImage file into a document of the host.
//
// A session is: start (file open, headers read, the host told the picture), one continue (all rows
// delivered, chunk by chunk, through exchangeRows), finish (file closed). A start that fails leaves
// the file to the finish. Results: 0; -128 the user stopped; -108 no memory; -30500 no such frame;
// -30501 the file can't be opened or read or isn't in the format; -30900 a suite is missing; 1 a
// pixel length that has no rows; else a code of the host's calls.
#pragma once

#include "formats/electricimage/session.h"

namespace Project {

void EIReadStart(EIContext& context);
void EIReadContinue(EIContext& context);
void EIReadFinish(EIContext& context);

} // namespace Project

// Writing a document of the host as an ElectricImage file of one packed frame.
//
// A session is: start (headers and colour table on the disk, row buffer ready), one continue (each
// row fetched through exchangeRows and packed), finish (the size in the header patched, file
// closed). The finish does not ask whether all rows were written: a save that the user stopped
// still ends in a well-formed file. Results: 0; -128 the user stopped; -108 no row buffer; -30500 a
// document that the format can't hold; -30501 the file can't be opened; -30900 no way to fetch
// rows; 2 a pixel of a length that has no packets; else a code of the host's calls.
#pragma once

#include "formats/electricimage/session.h"

namespace Project {

void EIWriteStart(EIContext& context);
void EIWriteContinue(EIContext& context);
void EIWriteFinish(EIContext& context);

// Tells the host how long the file may get. The row's length is counted at the document's own
// depth.
void EIEstimate(EIContext& context);

} // namespace Project

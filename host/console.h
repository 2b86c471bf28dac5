// The terminal and the display that the program runs at, and the key that ends it.
#pragma once

namespace Host {

// Whether messages (the error stream) go to a terminal.
bool MessagesGoToTerminal();

// Its width in characters; 80 when it can't be told.
int TerminalWidth();

// Whether there is a display to show windows on.
bool HasDisplay();

// From now on the interrupt key (Ctrl-C), a request to end and the end of the terminal don't kill
// the program but make Interrupted() true. A second one kills. A limit on the size of files is a
// failed write.
void CatchInterrupts();
bool Interrupted();

} // namespace Host

// The turn that a loop of the platform gives the program.
#pragma once

namespace Platform {

void TakeForeignTurn();

} // namespace Platform

// The natural size of a view that has children.
#pragma once

namespace Kesto {

class CViewProxy;

// Sets the size, the outsets, the label column and the sums of `proxy` from its children, whose own
// sizes are final; a size that was given is the least one. Puts the children into the opposite
// order first if `proxy` asks for it. Nothing changes when there are none.
void MeasureByChildren(CViewProxy& proxy);

} // namespace Kesto

// The places of the children of a view.
#pragma once

namespace Kesto {

class CViewProxy;

// Sets the position of each child within `proxy`, whose own size is final, and stretches those
// that share in the free room. An alignment that is none of the language's leaves what it would
// set as it was.
void PlaceChildren(CViewProxy& proxy);

} // namespace Kesto

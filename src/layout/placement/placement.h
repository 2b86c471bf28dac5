// From proxies to numbers, and from numbers to views. Neither call recurses, so a tree may be as
// deep as memory allows.
#pragma once

namespace Kesto {

class CGenerator;
class CView;
class CViewProxy;

// Gives every proxy below `root` its position and size, and `root` its size: first the natural
// sizes, from the leaves up, then the places, from the root down. Reverses the children of those
// that ask for it, so it is called once. Numbers beyond 32 bits are pinned; see pinned.h.
void SolvePlacement(CViewProxy& root);

// Writes the numbers of each proxy to its layout scope and has `generator` build the views, each
// before its children and after those before it in the text. Returns the view of `root`, or null.
CView* RealizeViews(CViewProxy& root, CGenerator& generator);

} // namespace Kesto

// From proxies to views.
#pragma once

namespace Kesto {

class CGenerator;
class CView;
class CViewProxy;

// Writes the position and size of each proxy to its layout scope and has `generator` build the
// views, each before its children. Returns the view of `root`, or null.
CView* SolvePlacement(CViewProxy& root, CGenerator& generator);

} // namespace Kesto

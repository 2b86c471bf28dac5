// How deep views may lie within each other.
#pragma once

namespace Kesto {

// Walks of a tree recurse; to this depth they fit into the stack that a host leaves. A view that is
// put in deeper is destroyed, and CView::InsertChild throws std::logic_error "Warning! (depth <=
// kMaxViewDepth)".
inline constexpr int kMaxViewDepth = 500;

} // namespace Kesto

// How deep views may lie within each other.
#pragma once

namespace Kesto {

// Walks of a tree go down by calls; as deep as this they fit into the stack that a host leaves. A
// view that is put in deeper goes, and CView::InsertChild throws std::logic_error "Warning! (depth
// <= kMaxViewDepth)".
inline constexpr int kMaxViewDepth = 500;

} // namespace Kesto

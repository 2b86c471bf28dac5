// What descriptions tell of controls beyond what every view has, by class.
#pragma once

namespace Kesto {

class CDescriptionRecord;
class CView;

// Puts the keys of the view's class, if it has any of its own.
void DescribeControl(const CView& view, CDescriptionRecord& record);

} // namespace Kesto

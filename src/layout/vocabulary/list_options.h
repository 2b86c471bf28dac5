// The options of sheets of cells, lists and combo boxes. The names are those of layout texts. Each
// is one bit.
#pragma once

#include <cstdint>

namespace Kesto {

enum ECellSheetOptions : std::int32_t {
    kCellSheet_NoOptions = 0,
    kCellSheet_FlowRight = 1,
    kCellSheet_OneDimension = 2,
    kCellSheet_SizeVariable = 4,
    kCellSheet_VariableResizes = 8,
    kCellSheet_FillEmpty = 16,
    kCellSheet_MultiSelect = 32,
    kCellSheet_ContiguousSelect = 64,
    kCellSheet_TrackSelect = 128,
    kCellSheet_TrackRange = 256,
    kCellSheet_DeselectOutside = 512,
};

enum EComboOptions : std::int32_t {
    kCombo_NoOptions = 0,
    kCombo_Editable = 1,
    kCombo_CustomItems = 2,
};

enum EListBoxOptions : std::int32_t {
    kListBox_NoOptions = 0,
    kListBox_MultiSelect = 1,
    kListBox_ContiguousSelect = 2,
    kListBox_TrackSelect = 4,
    kListBox_TrackRange = 8,
    kListBox_DeselectOutside = 16,
};

} // namespace Kesto

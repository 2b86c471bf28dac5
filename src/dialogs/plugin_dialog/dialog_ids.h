// The ids by which a plug-in's dialog knows its views, and those of its commands.
#pragma once

#include "view/messages/object_id.h"

#include <array>
#include <cstdint>
#include <optional>

namespace Project {

inline const Kesto::CObjID kDialog_PreviewScroller{"Project/Dialog/PreviewScroller"};
inline const Kesto::CObjID kDialog_PreviewPane{"Project/Dialog/PreviewPane"};
inline const Kesto::CObjID kDialog_ZoomPanel{"Project/Dialog/ZoomPanel"};
inline const Kesto::CObjID kDialog_ZoomMenu{"Project/Dialog/ZoomMenu"};
inline const Kesto::CObjID kDialog_OKButton{"Project/Dialog/OKButton"};
inline const Kesto::CObjID kDialog_CancelButton{"Project/Dialog/CancelButton"};
inline const Kesto::CObjID kDialog_Setting1{"Project/Dialog/Setting1"};
inline const Kesto::CObjID kDialog_Setting2{"Project/Dialog/Setting2"};
inline const Kesto::CObjID kDialog_Setting3{"Project/Dialog/Setting3"};

inline const Kesto::CObjID kCommand_ZoomIn{"Project/Command/ZoomIn"};
inline const Kesto::CObjID kCommand_ZoomOut{"Project/Command/ZoomOut"};

// The scales of the zoom menu, in its order.
inline constexpr std::array kZoomScales = {0.0625, 0.125, 0.25, 1.0 / 3.0, 0.5,  1.0,  2.0,
                                           3.0,    4.0,   6.0,  8.0,       10.0, 12.0, 16.0};

// The command for one of them.
Kesto::CObjID ZoomCommand(std::uint32_t index);

// The scale that a command asks for; nothing for another command.
std::optional<double> ZoomScaleOf(Kesto::CObjID command);

} // namespace Project

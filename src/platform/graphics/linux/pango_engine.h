// Pango's engine, for every script.
#pragma once

#include "platform/graphics/font_engine.h"

#include <memory>
#include <span>

namespace Platform {

std::unique_ptr<FontEngine> MakePangoEngine(const FontSpec& spec);

// Says of each character of a text, whose clusters these are, whether rows and words begin at it;
// no font is asked.
void MarkBreaks(const std::u32string& text, std::span<TextCluster> clusters);

} // namespace Platform

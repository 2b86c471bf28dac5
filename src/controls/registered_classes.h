// The classes that a layout text can name: the one table from which the generator has its builders,
// and the checker and the documentation what they know of classes.
#pragma once

#include "foundation/base/geometry.h"
#include "layout/build/view_builder.h"
#include "layout/vocabulary/keywords.h"

#include <memory>
#include <span>
#include <string_view>

namespace Kesto {

struct RegisteredClass {
    std::string_view name;
    VexClassKind kind;
    // Null for a class that a layer above has, or that is still to come: a placeholder of the size
    // takes its place.
    std::unique_ptr<CViewBuilderBase> (*makeBuilder)(std::string_view name);
    Point placeholderSize;

    // Whether a placeholder takes its place now; only once classes are registered.
    bool IsToCome() const;
};

std::span<const RegisteredClass> RegisteredClasses();

// Has all of them known to the generator, for the life of the process. To be called before a text
// is loaded; a second call does nothing. Static objects that register themselves would not do: the
// linker leaves them out of a static library.
void RegisterViewClasses();

} // namespace Kesto

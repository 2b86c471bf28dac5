// The checker takes any text. Where it finds no syntax error, the canonical form means the same and
// is stable.
#include "vex/check.h"
#include "vex/dump.h"
#include "vex/format.h"

#include <nlohmann/json.hpp>

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const Vex::CSourceText source("fuzz",
                                  std::string(reinterpret_cast<const char*>(data), size).c_str());
    for (const Vex::Diagnostic& diagnostic : Vex::CheckLayout(source))
        Vex::ToJson(source, diagnostic);
    if (!Vex::ReadLayout(source).error.empty())
        return 0;
    const Vex::CSourceText formatted("fuzz", Vex::FormatLayout(source));
    if (Vex::DumpLayout(source) != Vex::DumpLayout(formatted) ||
        Vex::FormatLayout(formatted) != formatted.Text())
        std::abort();
    return 0;
}

// Any text through the parser, silent and with a listener; both must come to the same end.
#include "layout/recording_generator.h"

#include <cstdlib>
#include <string>

namespace {

class CListener : public Kesto::ParseListener {
public:
    void Event(Kesto::VexRule, const char* start, const char* end) override
    {
        if (start > end)
            std::abort();
    }
    bool IsDefined(std::string_view) override { return false; }
};

std::string EndOf(const std::string& text, Kesto::ParseListener* listener)
{
    CRecordingGenerator generator;
    const auto root =
        Kesto::CRapidViewScope::CreateRootScope(nullptr, &generator, nullptr, listener, true);
    const std::string error = LogicErrorOf([&] { root->Parse(text.c_str()); });
    return error + std::to_string(generator.fMeasured.size()) + ' ' +
           std::to_string(generator.fBuilt.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    CListener listener;
    if (EndOf(text, nullptr) != EndOf(text, &listener))
        std::abort();
    return 0;
}

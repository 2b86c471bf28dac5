// Reads any bytes as what a file keeps of fontconfig's answers. What is read must be written as the
// same bytes.
#include "platform/graphics/linux/font_answers.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto answers = Platform::ReadFontAnswers(bytes);
    if (answers && Platform::BytesOf(*answers) != bytes)
        std::abort();
    return 0;
}

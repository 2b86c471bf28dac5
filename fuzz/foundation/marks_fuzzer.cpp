// Expands the marks of any text and puts arguments into it. The first byte chooses the argument's
// number, a zero parts the text from the argument.
#include "foundation/base/unicode.h"
#include "foundation/localization/marks.h"
#include "foundation/localization/string_table.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
    Kesto::CText text(input.substr(0, input.find('\0')));
    const Kesto::CText argument(
        input.substr(std::min(text.ByteLength() + std::size_t{1}, input.size())));
    const std::size_t marks =
        std::ranges::count(text.View(), '^') + std::ranges::count(text.View(), '\\');
    const Kesto::CText before = text;
    Kesto::ExpandMarks(text);
    if (text.CharCount() != Kesto::CountCharacters(text.View()) ||
        (marks == 0 && !text.SharesBufferWith(before)))
        std::abort();
    const std::uint32_t length = text.ByteLength();
    const bool hasPlace = text.View().find('^' + std::to_string(data[0])) != std::string_view::npos;
    Kesto::ReplaceArgument(text, data[0], argument);
    if (!hasPlace && text.ByteLength() != length)
        std::abort();
    Kesto::CServiceT<Kesto::CStringTable>::Holder().Destroy(); // what the argument's key left
    return 0;
}

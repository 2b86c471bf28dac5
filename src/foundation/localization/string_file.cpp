#include "foundation/localization/string_file.h"

#include "foundation/localization/marks.h"

#include <string>
#include <utility>
#include <vector>

namespace Kesto {
namespace {

// Units in the file's byte order.
enum class ByteOrder { kBig, kLittle };

template <ByteOrder kOrder>
char16_t UnitAt(std::span<const std::byte> file, std::size_t unit)
{
    const auto first = std::to_integer<unsigned>(file[2 * unit]);
    const auto second = std::to_integer<unsigned>(file[2 * unit + 1]);
    return static_cast<char16_t>(kOrder == ByteOrder::kBig ? first << 8 | second
                                                           : second << 8 | first);
}

// Takes a file unit by unit.
class CStringFileParser {
public:
    CStringFileParser(CStringTable& table, bool replace) : fTable(table), fReplace(replace)
    {
        fKey.reserve(1024);
        fValue.reserve(2048);
    }

    void Take(char16_t unit)
    {
        if (unit == u'\r' || unit == u'\n')
            FinishLine();
        else if (fInValue)
            TakeInValue(unit);
        else
            TakeInKey(unit);
    }

    void FinishLine()
    {
        if (fValue.ends_with(u'"'))
            fValue.pop_back();
        if (fKey.size() > 1) {
            CText value = CText::FromUtf16(fValue);
            ExpandMarks(value);
            fTable.Add(fKey, std::move(value), fReplace);
        }
        fKeyStarted = fInValue = fEscaped = false;
        fKey.clear();
        fValue.clear();
    }

private:
    void TakeInKey(char16_t unit)
    {
        if (unit == u'=') {
            fKeyStarted = fInValue = true;
        } else if (fKeyStarted || (unit != u'"' && unit != u'$')) {
            fKeyStarted = true;
            fKey += static_cast<char>(unit & 0xFF);
        }
    }

    void TakeInValue(char16_t unit)
    {
        if (unit == u'\\' && !fEscaped) {
            fEscaped = true;
        } else {
            fEscaped = false;
            fValue += unit;
        }
    }

    CStringTable& fTable;
    bool fReplace;
    std::string fKey;
    std::u16string fValue;
    bool fKeyStarted = false;
    bool fInValue = false;
    bool fEscaped = false;
};

template <ByteOrder kOrder>
void ParseUnits(CStringFileParser parser, std::span<const std::byte> file)
{
    for (std::size_t unit = 0; unit < file.size() / 2; ++unit)
        parser.Take(UnitAt<kOrder>(file, unit));
    parser.FinishLine();
}

} // namespace

void ParseStringFile(CStringTable& table, std::span<const std::byte> file, bool replace)
{
    constexpr char16_t kByteOrderMark = 0xFEFF;
    if (file.size() / 2 < 2)
        return;
    CStringFileParser parser(table, replace);
    if (UnitAt<ByteOrder::kLittle>(file, 0) == kByteOrderMark)
        ParseUnits<ByteOrder::kLittle>(std::move(parser), file.subspan(2));
    else if (UnitAt<ByteOrder::kBig>(file, 0) == kByteOrderMark)
        ParseUnits<ByteOrder::kBig>(std::move(parser), file.subspan(2));
    else
        ParseUnits<ByteOrder::kBig>(std::move(parser), file);
}

void ParseStringFile(CStringTable& table, CContainer& file, bool replace)
{
    std::vector<std::byte> bytes(file.GetSize());
    file.Seek(0);
    file.Read(bytes.data(), bytes.size());
    ParseStringFile(table, bytes, replace);
}

} // namespace Kesto

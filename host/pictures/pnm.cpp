#include "pictures/pnm.h"

#include "failure.h"
#include "files/buffered_file.h"
#include "files/pending_file.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Host {
namespace {

constexpr size_t kHeaderLimit = 4096;
constexpr size_t kBandBytes = size_t{256} * 1024;
constexpr int32_t kLargestSide = 1'000'000;

// The words of a header, one after the other; comments run from # to the line's end.
class HeaderWords {
public:
    explicit HeaderWords(std::string_view text) : fText(text) {}

    std::string_view Next()
    {
        SkipBlanks();
        const size_t start = fAt;
        while (fAt < fText.size() && !IsBlank(fText[fAt]))
            ++fAt;
        return fText.substr(start, fAt - start);
    }

    // Where the byte after the last word is.
    size_t At() const { return fAt; }

private:
    static bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

    void SkipBlanks()
    {
        while (fAt < fText.size() && (IsBlank(fText[fAt]) || fText[fAt] == '#'))
            fAt = fText[fAt] == '#' ? std::min(fText.find('\n', fAt), fText.size()) : fAt + 1;
    }

    std::string_view fText;
    size_t fAt = 0;
};

struct Header {
    int32_t width = 0;
    int32_t height = 0;
    int32_t planes = 0;
    int32_t maximum = 0;
    size_t bytes = 0; // of the header itself
};

int32_t NumberOf(std::string_view word)
{
    int32_t value = -1;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    return error == std::errc() && end == word.data() + word.size() ? value : -1;
}

Header ParsePam(HeaderWords& words)
{
    Header header;
    for (;;) {
        const std::string_view key = words.Next();
        if (key.empty() || key == "ENDHDR")
            return header;
        const std::string_view value = words.Next();
        // The word after TUPLTYPE says nothing that the depth doesn't, so it is passed over.
        if (key == "WIDTH")
            header.width = NumberOf(value);
        else if (key == "HEIGHT")
            header.height = NumberOf(value);
        else if (key == "DEPTH")
            header.planes = NumberOf(value);
        else if (key == "MAXVAL")
            header.maximum = NumberOf(value);
    }
}

Header ParseHeader(std::string_view text)
{
    HeaderWords words(text);
    const std::string_view magic = words.Next();
    Header header;
    if (magic == "P7") {
        header = ParsePam(words);
    } else {
        header.planes = magic == "P5" ? 1 : 3;
        header.width = NumberOf(words.Next());
        header.height = NumberOf(words.Next());
        header.maximum = NumberOf(words.Next());
    }
    header.bytes = words.At() + 1;
    return header;
}

class PnmSource final : public PictureSource {
public:
    PnmSource(RawFile file, const std::filesystem::path& path)
        : fFile(std::move(file)), fName(TextOf(path))
    {
        std::string text(kHeaderLimit, '\0');
        size_t count = text.size();
        Require(fFile.ReadAt(0, text.data(), count), fName);
        const Header header = ParseHeader(std::string_view(text).substr(0, count));
        Check(header);
        fInfo.width = header.width;
        fInfo.height = header.height;
        fInfo.planes = header.planes;
        fInfo.mode = header.planes == 1 ? PictureMode::kGrayscale : PictureMode::kRgb;
        fInfo.palette = Palette::Grays();
        fPixels = static_cast<int64_t>(header.bytes);
        fBandRows = static_cast<int32_t>(std::max<size_t>(1, kBandBytes / fInfo.RowBytes()));
    }

    const PictureInfo& Info() const override { return fInfo; }

    const uint8_t* Row(int32_t y) override
    {
        if (y < fFirst || y >= fFirst + fHeld)
            LoadBand(y);
        return fBand.data() + static_cast<size_t>(y - fFirst) * fInfo.RowBytes();
    }

private:
    void Check(const Header& header) const
    {
        const bool sized = std::min(header.width, header.height) >= 1 &&
                           std::max(header.width, header.height) <= kLargestSide;
        const bool kind = header.planes == 1 || header.planes == 3 || header.planes == 4;
        if (!sized || !kind || header.maximum != 255)
            throw Failure(
                fName + " has a header that this program can't read",
                "The sides must be 1 to 1000000, the planes 1, 3 or 4, and the greatest value 255.",
                kHostCannotRead);
    }

    void LoadBand(int32_t y)
    {
        fHeld = 0;
        fFirst = y;
        const int32_t rows = std::min(fBandRows, fInfo.height - y);
        const size_t wanted = static_cast<size_t>(rows) * fInfo.RowBytes();
        fBand.resize(wanted);
        size_t count = wanted;
        const int64_t offset =
            fPixels + static_cast<int64_t>(y) * static_cast<int64_t>(fInfo.RowBytes());
        Require(fFile.ReadAt(offset, fBand.data(), count), fName);
        Require(count == wanted ? kHostNoError : kHostEndOfFile, fName);
        fHeld = rows;
    }

    RawFile fFile;
    std::string fName;
    PictureInfo fInfo;
    int64_t fPixels = 0; // file offset of the first row
    std::vector<uint8_t> fBand;
    int32_t fBandRows = 1;
    int32_t fFirst = 0; // the band holds the rows from fFirst on,
    int32_t fHeld = 0;  // so many of them
};

class PnmSink final : public PictureSink {
public:
    PnmSink(const std::filesystem::path& path, PnmKind kind)
        : fPending(path), fName(TextOf(path)), fKind(kind)
    {
    }

    void Begin(const PictureInfo& info) override
    {
        fInfo = info;
        if (info.planes == 4 && fKind == PnmKind::kPnm)
            throw Failure(fName + " can't hold alpha", "Write a .pam or a .png file.",
                          kHostBadMode);
        RawFile file;
        Require(fPending.Create(file), fName);
        fFile.emplace(std::move(file), kHostOpenToWrite);
        const std::string header = HeaderText();
        Put(header.data(), header.size());
        if (fInfo.mode == PictureMode::kIndexed)
            fColours.resize(static_cast<size_t>(info.width) * 3);
    }

    void PutRows(const uint8_t* rows, size_t stride, int32_t count) override
    {
        if (fInfo.mode != PictureMode::kIndexed && stride == fInfo.RowBytes())
            return Put(rows, stride * static_cast<size_t>(count));
        for (; count > 0; --count, rows += stride) {
            if (fInfo.mode == PictureMode::kIndexed)
                PutColours(rows);
            else
                Put(rows, fInfo.RowBytes());
        }
    }

    void Finish() override
    {
        Require(fFile->Close(), fName);
        Require(fPending.Commit(), fName);
    }

private:
    std::string HeaderText() const
    {
        const int32_t planes = fInfo.mode == PictureMode::kIndexed ? 3 : fInfo.planes;
        const std::string width = std::to_string(fInfo.width),
                          height = std::to_string(fInfo.height);
        if (fKind == PnmKind::kPnm)
            return (planes == 1 ? "P5\n" : "P6\n") + width + " " + height + "\n255\n";
        const char* tuple = planes == 1 ? "GRAYSCALE" : planes == 3 ? "RGB" : "RGB_ALPHA";
        return "P7\nWIDTH " + width + "\nHEIGHT " + height + "\nDEPTH " + std::to_string(planes) +
               "\nMAXVAL 255\nTUPLTYPE " + tuple + "\nENDHDR\n";
    }

    void Put(const void* bytes, size_t count)
    {
        Require(fFile->Write(static_cast<int64_t>(count), bytes), fName);
    }

    void PutColours(const uint8_t* indices)
    {
        uint8_t* out = fColours.data();
        for (int32_t x = 0; x < fInfo.width; ++x) {
            *out++ = fInfo.palette.red[indices[x]];
            *out++ = fInfo.palette.green[indices[x]];
            *out++ = fInfo.palette.blue[indices[x]];
        }
        Put(fColours.data(), fColours.size());
    }

    PendingFile fPending; // before fFile: the file closes first
    std::optional<BufferedFile> fFile;
    std::string fName;
    PnmKind fKind;
    PictureInfo fInfo;
    std::vector<uint8_t> fColours; // one row of an indexed picture
};

} // namespace

std::unique_ptr<PictureSource> OpenPnm(RawFile file, const std::filesystem::path& path)
{
    return std::make_unique<PnmSource>(std::move(file), path);
}

std::unique_ptr<PictureSink> CreatePnm(const std::filesystem::path& path, PnmKind kind)
{
    return std::make_unique<PnmSink>(path, kind);
}

} // namespace Host

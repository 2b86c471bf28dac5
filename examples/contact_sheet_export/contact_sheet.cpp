// An export plug-in: a sheet of equal small prints of the document, on white paper, written as PPM,
// or as PGM when the document is grey.
#include "sheet_dialog.h"
#include "sheet_settings.h"

#include "plugin/export/export.h"
#include "plugin/export/export_dispatch.h"
#include "plugin/frame/host_settings.h"
#include "plugin/frame/lumograph_error.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace ContactSheet {
namespace {

constexpr Kesto::ProjectIndex kProject{1};
constexpr char kPaper = '\xFF';

// A sample of 0 to 1.
float Load(const uint8_t* from, int32_t bits)
{
    if (bits == 8)
        return static_cast<float>(*from) / 255;
    if (bits == 16) {
        uint16_t wide = 0;
        std::memcpy(&wide, from, sizeof wide);
        return static_cast<float>(wide) / 32768;
    }
    float real = 0;
    std::memcpy(&real, from, sizeof real);
    return real;
}

class Export final : public Project::PExport {
public:
    void DoPluginMain(int16_t selector, HostExportRecord*, intptr_t*, int16_t* result) override
    {
        if (selector == kExportParameters)
            *result = AskUser();
        else if (selector == kExportStart)
            *result = RunExportTask();
    }

    Kesto::CText GetProductName() override { return "Contact Sheet"; }

    void GetSettingsLocation(Kesto::CText& keyPath, Kesto::CText& fileName) override
    {
        keyPath = "Software^LSidecar Examples^LContact Sheet";
        fileName = "Contact Sheet Prefs.lgp";
    }

    std::unique_ptr<Project::PSettings> CreateSettings() override
    {
        return std::make_unique<Settings>();
    }

    std::unique_ptr<Kesto::CPluginDialog> GetDialog() override
    {
        return LoadSheetDialog(SheetSettings());
    }

    void ExportDocument() override
    {
        const Settings settings = ReadSettings();
        const HostExportRecord& record = *GetExportRecord();
        const int32_t longer = std::max(record.documentWidth, record.documentHeight);
        if (longer < 1 || longer > std::numeric_limits<int16_t>::max())
            throw Kesto::CLumographError(kHostBadParameter);
        const int32_t size = std::min(settings.size, longer);
        fWidth = std::max(record.documentWidth * size / longer, 1);
        fHeight = std::max(record.documentHeight * size / longer, 1);
        fColours = record.planeCount < 3 ? 1 : 3;
        MakePrint(record);
        Write(settings, record.outputPath);
    }

private:
    Settings& SheetSettings() { return dynamic_cast<Settings&>(*GetPrefsBag().project); }

    // A host that doesn't look after windows of plug-ins has nobody to ask.
    int16_t AskUser()
    {
        if (HostSuites().Find(kHostUIHooksSuiteName, kHostUIHooksSuiteVersion4) == nullptr)
            return kHostNoError;
        return RunDialog() ? kHostNoError : kHostUserCanceled;
    }

    // What the user left, with what the host sets in place of it.
    Settings ReadSettings()
    {
        Settings settings = SheetSettings();
        const Kesto::CHostSettings host(HostSuites());
        for (const Field& field : kFields)
            host.Read(field.name, settings.*field.number, field.least, field.most);
        return settings;
    }

    // Averages the document down, one row of the print after the other.
    void MakePrint(const HostExportRecord& record)
    {
        fPrint.clear();
        for (int32_t y = 0; y < fHeight; ++y) {
            const auto top = static_cast<int16_t>(y * record.documentHeight / fHeight);
            const auto bottom = static_cast<int16_t>((y + 1) * record.documentHeight / fHeight);
            FetchBlock({top, 0, bottom, static_cast<int16_t>(record.documentWidth)});
            for (int32_t x = 0; x < fWidth; ++x)
                PrintPixel(record, x * record.documentWidth / fWidth,
                           (x + 1) * record.documentWidth / fWidth, bottom - top);
            ReportProgress(y + 1, fHeight);
        }
    }

    // One pixel of the print, from the block's columns `left` to `right`, on the paper where the
    // document is transparent.
    void PrintPixel(const HostExportRecord& record, int32_t left, int32_t right, int32_t height)
    {
        const int32_t sample = record.depth / 8;
        const bool hasAlpha = record.planeCount == 2 || record.planeCount == 4;
        for (int32_t plane = 0; plane < fColours; ++plane) {
            float sum = 0;
            for (int32_t y = 0; y < height; ++y)
                for (int32_t x = left; x < right; ++x) {
                    const uint8_t* const pixel = static_cast<const uint8_t*>(record.block) +
                                                 int64_t{y} * record.blockStride +
                                                 int64_t{x} * record.planeCount * sample;
                    const float value = Load(pixel + int64_t{plane} * sample, record.depth);
                    const float alpha =
                        hasAlpha ? Load(pixel + int64_t{fColours} * sample, record.depth) : 1;
                    sum += 1 + (value - 1) * alpha;
                }
            const float average = sum / static_cast<float>(height * (right - left));
            fPrint += static_cast<char>(
                static_cast<uint8_t>(std::clamp(average, 0.0F, 1.0F) * 255 + 0.5F));
        }
    }

    void Write(const Settings& settings, const char* path) const
    {
        const int32_t width = settings.columns * (fWidth + settings.gap) + settings.gap;
        const int32_t height = settings.rows * (fHeight + settings.gap) + settings.gap;
        const auto bytes = [this](int32_t pixels) {
            return static_cast<size_t>(pixels * fColours);
        };
        const std::string gap(bytes(settings.gap), kPaper);
        std::string between;
        for (int32_t y = 0; y < settings.gap; ++y)
            between.append(bytes(width), kPaper);
        std::string row = between;
        for (int32_t y = 0; y < fHeight; ++y) {
            for (int32_t column = 0; column < settings.columns; ++column)
                row.append(gap).append(fPrint, bytes(y * fWidth), bytes(fWidth));
            row.append(gap);
        }
        const std::string name = path != nullptr ? path : "";
        std::ofstream file(std::filesystem::path(std::u8string(name.begin(), name.end())),
                           std::ios::binary);
        file << (fColours == 1 ? "P5\n" : "P6\n") << width << " " << height << "\n255\n";
        for (int32_t n = 0; n < settings.rows; ++n)
            file << row;
        if (!file.write(between.data(), std::ssize(between)).flush())
            throw Kesto::CLumographError(kHostWriteError);
    }

    int32_t fWidth = 0; // of a print
    int32_t fHeight = 0;
    int32_t fColours = 0;
    std::string fPrint; // its pixels, bytes
};

} // namespace
} // namespace ContactSheet

extern "C" [[gnu::visibility("default")]] void EntryContactSheet(int16_t selector, void* record,
                                                                 intptr_t* data, int16_t* result)
{
    Kesto::DispatchExport(selector, record, data, result, ContactSheet::kProject,
                          [](Kesto::ProjectIndex) -> std::unique_ptr<Kesto::CLumographExport> {
                              return std::make_unique<ContactSheet::Export>();
                          });
}

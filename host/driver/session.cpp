#include "driver/session.h"

#include "driver/basic_suite.h"
#include "driver/host_memory.h"
#include "failure.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

namespace Host {
namespace {

// The picture that a module's read start has described.
PictureInfo PictureOf(const HostFormatRecord& record)
{
    PictureInfo info;
    info.mode = static_cast<PictureMode>(record.colorMode);
    info.width = record.columnCount;
    info.height = record.rowCount;
    info.planes = record.planeCount;
    std::copy_n(record.redLut, 256, info.palette.red.begin());
    std::copy_n(record.greenLut, 256, info.palette.green.begin());
    std::copy_n(record.blueLut, 256, info.palette.blue.begin());
    return info;
}

// The document's side of the record, for the estimate and write selectors.
void Describe(HostFormatRecord& record, const PictureInfo& info)
{
    record.colorMode = static_cast<int16_t>(info.mode);
    record.columnCount = static_cast<int16_t>(info.width);
    record.rowCount = static_cast<int16_t>(info.height);
    record.channelDepth = 8;
    record.planeCount = static_cast<int16_t>(info.planes);
    record.horizontalResolution = record.verticalResolution = 72 << 16;
    std::ranges::copy(info.palette.red, record.redLut);
    std::ranges::copy(info.palette.green, record.greenLut);
    std::ranges::copy(info.palette.blue, record.blueLut);
}

} // namespace

Session::Session(const PluginModule& module, const OperationOptions& options)
    : fModule(module), fOptions(options)
{
    if (fModule.Properties().loadUnload)
        SendAlone(kFormatLoad);
}

Session::~Session()
{
    if (fModule.Properties().loadUnload)
        SendAlone(kFormatUnload);
    if (const int suites = AcquiredSuites(); suites > 0)
        std::fprintf(stderr, "lumohost: the module left behind: %d suite%s not released\n", suites,
                     suites == 1 ? "" : "s");
    if (fOptions.verbose && Memory().handles > 0)
        std::fprintf(stderr, "%d handles of %lld bytes were the data word's and end with it\n",
                     int{Memory().handles}, static_cast<long long>(Memory().handleBytes));
    ReleaseHandles();
}

// A selector outside of any operation: the record has the suites and no file.
void Session::SendAlone(int16_t selector)
{
    Operation(fModule, fData, {}, fOptions).Call(selector);
}

PictureInfo Session::Open(const std::filesystem::path& file, PictureSink& sink)
{
    RequireReadable(fModule.Properties(), file);
    Operation operation(fModule, fData, file, fOptions);
    ProgressBar progress("Opening", fOptions.showProgress);
    operation.SetProgress(&progress);

    std::optional<RowDelivery> delivery;
    PictureInfo info;
    int64_t before = -1;
    operation.Run(
        kReadPhases,
        [&] {
            info = PictureOf(operation.Record());
            RequirePicture(fModule.Properties(), info);
            sink.Begin(info);
            delivery.emplace(info, sink);
            operation.SetExchange([&](const HostFormatRecord& record) {
                delivery->Take(Exchange::Of(record, info));
            });
        },
        [&] {
            // A continue that brings nothing new is the last, or a module that forgot a row would
            // be asked for ever.
            return !delivery->IsComplete() &&
                   std::exchange(before, delivery->Delivered()) < delivery->Delivered();
        });
    delivery->Finish();
    ReportBooks(operation);
    return info;
}

SaveReport Session::Save(PictureSource& picture, const std::filesystem::path& file)
{
    RequireWritable(fModule.Properties(), file);
    RequirePicture(fModule.Properties(), picture.Info());
    Operation operation(fModule, fData, file, fOptions);
    ProgressBar progress("Saving", fOptions.showProgress);
    operation.SetProgress(&progress);
    Describe(operation.Record(), picture.Info());

    // Every host asks for the options and the estimate before it opens the file.
    operation.Run(kOptionsPhases);
    operation.Run(kEstimatePhases);
    const SaveReport report = {operation.Record().estimateMin, operation.Record().estimateMax};
    operation.SetExchange([&](const HostFormatRecord& record) {
        SupplyRows(Exchange::Of(record, picture.Info()), picture);
    });
    operation.Run(kWritePhases);
    ReportBooks(operation);
    operation.Commit();
    return report;
}

void Session::ReportBooks(const Operation& operation) const
{
    const std::vector<std::string> leftovers = operation.Leftovers();
    for (const std::string& line : leftovers)
        std::fprintf(stderr, "lumohost: the module left behind: %s\n", line.c_str());
    if (!fOptions.verbose)
        return;
    const MemoryBook& memory = Memory();
    std::fprintf(
        stderr,
        "memory: peak %lld bytes in buffers, limit %lld, head-room %lld, %d requests refused\n",
        static_cast<long long>(memory.peak), static_cast<long long>(memory.limit),
        static_cast<long long>(memory.headRoom), int{memory.refused});
    if (leftovers.empty())
        std::fprintf(stderr, "every buffer, lock, file and suite was given back\n");
}

} // namespace Host

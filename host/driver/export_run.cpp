#include "driver/export_run.h"

#include "driver/basic_suite.h"
#include "driver/host_memory.h"
#include "failure.h"
#include "files/pending_file.h"

namespace Host {

ExportRun::ExportRun(const PluginModule& module, const OperationOptions& options,
                     ServedSettings::Pairs settings, const Document& document,
                     const std::string& name)
    : DocumentRun(module, options, std::move(settings), "Exporting", "export " + name),
      fDocument(document)
{
    RequireSides(document.Info());
    BuildRecord();
}

void ExportRun::BuildRecord()
{
    const PictureInfo& info = fDocument.Info();
    fRecord.abortCheck = AbortCheck;
    fRecord.progressReport = ReportProgress;
    fRecord.memoryBudget = Budget();
    fRecord.fetchBlock = FetchBlock;
    fRecord.documentWidth = info.width;
    fRecord.documentHeight = info.height;
    fRecord.depth = static_cast<int32_t>(fDocument.Depth());
    fRecord.colorMode = static_cast<int16_t>(info.mode);
    fRecord.planeCount = static_cast<int16_t>(info.planes);
    fRecord.horizontalResolution = fRecord.verticalResolution = 72 << 16;
    fRecord.basicSuite = BasicSuite();
}

void ExportRun::AskUser()
try {
    Require(kExportParameters, "export parameters", &fRecord);
    fBlock.Drop();
} catch (const Failure& failure) {
    if (failure.Code() != kHostFailed)
        throw;
    throw Failure(failure.what(), failure.Advice(), kHostUserCanceled);
}

void ExportRun::Run(const std::filesystem::path& output)
{
    PendingFile file(output);
    {
        RawFile made;
        Host::Require(file.Create(made), TextOf(output)); // closed again: the module opens it
    }
    const std::string path = TextOf(file.Temporary());
    fRecord.outputPath = path.c_str();
    SetMemoryHeadRoom(fRecord.memoryBudget);
    Require(kExportPrepare, "export prepare", &fRecord);
    try {
        Require(kExportStart, "export start", &fRecord);
        fSettings.RequireKnown();
    } catch (...) {
        CallAtEnd(kExportFinish, "export finish", &fRecord);
        throw;
    }
    Require(kExportFinish, "export finish", &fRecord);
    fBlock.Drop();
    ReportBooks();
    Host::Require(file.Commit(), TextOf(output));
}

int16_t ExportRun::FetchBlock()
{
    if (!IsRunning())
        return kHostBadParameter;
    auto& run = Current<ExportRun>();
    return run.Guarded([&run] { run.LendBlock(); });
}

void ExportRun::LendBlock()
{
    fBlock.Drop();
    fRecord.block = nullptr;
    fRecord.blockStride = 0;
    const HostRect16& rect = fRecord.blockRect;
    const BlockRequest request{
        {rect.left, rect.top, rect.right, rect.bottom}, fRecord.firstPlane, fRecord.lastPlane};
    if (request.IsEmpty())
        return;
    request.Check(fDocument, kHostFillNone, "document");
    fBlock.Lend(fDocument, request, kHostFillNone);
    fRecord.block = fBlock.Bytes();
    fRecord.blockStride = fBlock.Stride();
}

} // namespace Host

// ExportRun, a run of an export: the export record, and the blocks of the document that it lends.
#pragma once

#include "driver/document_run.h"

#include <filesystem>

namespace Host {

class ExportRun final : public DocumentRun {
public:
    // The document outlives the run.
    ExportRun(const PluginModule& module, const OperationOptions& options,
              ServedSettings::Pairs settings, const Document& document, const std::string& name);

    // Has the module ask its user. Throws Failure with -128 when it refused to go on: an export has
    // one code for all refusals, and tells of others itself.
    void AskUser();

    // Has the module write `output`, which changes only when all went well. Throws what failed.
    void Run(const std::filesystem::path& output);

private:
    static int16_t FetchBlock();

    void BuildRecord();
    void LendBlock();

    const Document& fDocument;
    HostExportRecord fRecord = {};
    Block fBlock;
};

} // namespace Host

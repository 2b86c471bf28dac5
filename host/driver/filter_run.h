// FilterRun, a run of a filter over a document, silent or with the filter's dialog: the filter
// record, and the blocks that it lends.
#pragma once

#include "driver/document_run.h"

namespace Host {

class FilterRun final : public DocumentRun {
public:
    // `picture` is what the filter reads; `mask`, if there is one, has its size, one plane of bytes
    // that say how much of each pixel is selected. Both outlive the run. Throws Failure for a
    // picture that the record can't tell of.
    FilterRun(const PluginModule& module, const OperationOptions& options,
              ServedSettings::Pairs settings, const Document& picture, const Document* mask,
              const std::string& name);

    // Has the filter ask its user. Throws what failed; the code is -128 when the dialog was
    // cancelled, and then nothing more is to be asked of the filter.
    void AskUser();

    // Runs the other selectors and returns the filtered picture. Throws what failed.
    Document Run();

private:
    static int16_t FetchBlocks();

    void BuildRecord();
    bool WantsBlocks() const;
    void LendBlocks();
    void TakeBlocks();
    void Proceed();

    const Document& fPicture;
    const Document* fMask;
    Document fResult;
    HostFilterRecord fRecord = {};
    Block fSourceBlock;
    Block fResultBlock;
    Block fMaskBlock;
};

// The smallest rectangle with all that a mask selects; empty when it selects nothing.
HostRect32 SelectedRect(const Document& mask);

} // namespace Host

// FilterRun, a silent run of a filter over a document: the filter record, and the blocks that it
// lends.
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

    // Runs the selectors and returns the filtered picture. Throws what failed.
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

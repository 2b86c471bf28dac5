// The frame of a filter: the host's six selectors as operations, the memory bargain, and the fields
// with which a filter asks the host for pixels.
//
// A session begins with parameters, prepare or start, whichever comes first, and ends with finish
// or the first failure; the object lives as long.
#pragma once

#include "plugin/frame/lumograph_plugin.h"

namespace Kesto {

class CLumographFilter : public CLumographPlugin {
public:
    // Bits of `filterFlags`.
    static constexpr uint32_t kFilterFlag_Session = 1U << 0; // between parameters and the end

    // Drops the tile store's source of host memory.
    ~CLumographFilter() override;

    virtual HostFilterRecord* GetFilterRecord();
    virtual int16_t GetSelector();
    const HostBasicSuite* GetBasicSuite() override;
    const char* WindowClassPrefix() const override { return "LGFilter_"; }

    // The operations. A false return makes the result 1.
    virtual bool DoParameters() { return true; }
    virtual bool WithRequiredMemory(); // settles the memory budget before a prepare
    virtual bool DoPrepare() { return true; }
    virtual bool DoStart() { return false; }
    virtual bool DoContinue() { return true; }
    virtual void DoFinish() {}

    // The handlers, one for each selector.
    virtual int16_t HandleAbout(const HostAboutRecord* record, intptr_t* data);
    virtual int16_t HandleParameters(HostFilterRecord* record, intptr_t* data);
    virtual int16_t HandlePrepare(HostFilterRecord* record, intptr_t* data);
    virtual int16_t HandleStart(HostFilterRecord* record, intptr_t* data);
    virtual int16_t HandleContinue(HostFilterRecord* record, intptr_t* data);
    virtual int16_t HandleFinish(HostFilterRecord* record, intptr_t* data);

    // Sets the limit of the tile store, once for each object, from the machine's memory and the
    // module's share, and with `useHostBuffers` has tiles come from the host's buffers.
    void PrepareMemory() override;

    // Empties the rectangles and planes that the record asks for, so that the host ends the run.
    // Without a record it does nothing.
    virtual void ClearRequests();

    uint32_t filterFlags = 0;
    bool useHostBuffers = false; // the host's word; read at a start
    bool memoryReady = false;    // PrepareMemory has run

private:
    bool EndSessionUnless(bool ok);
    void UseHostBuffers();
};

// Ends the use of the host's buffers by the tile store and gives the unused ones back. Without such
// a use it does nothing.
void DropFilterHelper();

} // namespace Kesto

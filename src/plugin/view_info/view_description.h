// The description of a tree of views that hosts and tools are given: a record of keys with values
// for each view, those of its sub-views within it.
//
// Keys of four characters keep their blanks. The records are somebody else's: a host's descriptors,
// or a tool's JSON.
#pragma once

#include "foundation/base/geometry.h"
#include "foundation/base/text.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace Kesto {

class CView;
class CWindow;

class CDescriptionRecord {
public:
    virtual ~CDescriptionRecord() = default;

    virtual void PutText(std::string_view key, const CText& text) = 0;
    virtual void PutFlag(std::string_view key, bool flag) = 0;
    virtual void PutInteger(std::string_view key, std::int32_t number) = 0;
    virtual void PutNumber(std::string_view key, double number) = 0;
    virtual void PutRect(std::string_view key, const PixelRect& rect) = 0;

    // An empty record of the same kind, and a list of such records under a key. The records are the
    // receiver's from then on.
    virtual std::unique_ptr<CDescriptionRecord> MakeRecord() const = 0;
    virtual void PutRecords(std::string_view key,
                            std::vector<std::unique_ptr<CDescriptionRecord>> records) = 0;

    // Called before the keys of a view are put, for those who tell more.
    virtual void BeginView(const CView&) {}
};

// Puts the keys of a view and of all below it. What the record's operations throw passes through.
void DescribeView(const CView& view, CDescriptionRecord& record);

// The same for a window: whose it is and where it is on the screen, frame and all, before the
// keys of its views.
void DescribeWindow(const CWindow& window, const CText& owner, CDescriptionRecord& record);

// What a person reads on a view, else its id's text, else nothing.
CText ReadableName(const CView& view);

} // namespace Kesto

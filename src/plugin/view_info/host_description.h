// Descriptions in the host's own descriptors.
#pragma once

#include "plugin/suites/host_suites.h"
#include "plugin/view_info/view_description.h"

#include <cstdint>
#include <optional>

namespace Kesto {

// The suites that make descriptors, all of them there.
class CHostDescriptions {
public:
    // Nothing when the host lacks one of them.
    static std::optional<CHostDescriptions> Find(const CHostSuites& suites);

    // The key of a name; one of four characters is a key by itself. Throws CLumographError with the
    // host's code.
    std::uint32_t KeyOf(std::string_view name) const;

    const HostDescriptorSuite& Descriptors() const { return *fDescriptors; }
    const HostListSuite& Lists() const { return *fLists; }

private:
    const HostDescriptorSuite* fDescriptors = nullptr;
    const HostListSuite* fLists = nullptr;
    const HostStringIdSuite* fNames = nullptr;
};

// A record that is a descriptor. It owns the descriptor until that is released; what the host
// refuses throws CLumographError with the host's code.
class CHostRecord final : public CDescriptionRecord {
public:
    explicit CHostRecord(const CHostDescriptions& host);
    ~CHostRecord() override;
    CHostRecord(const CHostRecord&) = delete;
    CHostRecord& operator=(const CHostRecord&) = delete;

    // The descriptor, which is the caller's from then on.
    HostDescriptor Release();

    void PutText(std::string_view key, const CText& text) override;
    void PutFlag(std::string_view key, bool flag) override;
    void PutInteger(std::string_view key, std::int32_t number) override;
    void PutNumber(std::string_view key, double number) override;
    // An object of the type "rectangle" with left, top, right and bottom.
    void PutRect(std::string_view key, const PixelRect& rect) override;
    std::unique_ptr<CDescriptionRecord> MakeRecord() const override;
    // A list of objects of the type `null`.
    void PutRecords(std::string_view key,
                    std::vector<std::unique_ptr<CDescriptionRecord>> records) override;
    // For the host's tools: the id's text under "id", and what the layout of a plug-in's dialog
    // calls the view's class under "class".
    void BeginView(const CView& view) override;

private:
    const CHostDescriptions& fHost;
    HostDescriptor fDescriptor = nullptr;
};

} // namespace Kesto

#include "plugin/view_info/host_description.h"

#include "plugin/frame/lumograph_error.h"
#include "plugin/frame/plugin_dialog.h"
#include "view/tree/context.h"

#include <string>
#include <utility>

namespace Kesto {
namespace {

constexpr std::uint32_t kNullType = LUMOGRAPH_KEY('n', 'u', 'l', 'l');

void Require(std::int32_t code)
{
    if (code != kHostNoError)
        throw CLumographError(static_cast<std::int16_t>(code));
}

// A list that is freed unless the host takes it over.
class CHostList {
public:
    explicit CHostList(const HostListSuite& suite) : fSuite(suite) { Require(suite.Make(&fList)); }
    ~CHostList() { fSuite.Free(fList); }
    CHostList(const CHostList&) = delete;
    CHostList& operator=(const CHostList&) = delete;

    HostList Get() const { return fList; }
    void Forget() { fList = nullptr; }

private:
    const HostListSuite& fSuite;
    HostList fList = nullptr;
};

std::uint32_t FourCharKey(std::string_view name)
{
    std::uint32_t key = 0;
    for (const char character : name)
        key = key << 8 | static_cast<unsigned char>(character);
    return key;
}

template <class Suite>
bool IsWhole(const Suite* suite, int16_t version, int16_t count)
{
    return suite != nullptr && suite->version == version && suite->count >= count;
}

} // namespace

std::optional<CHostDescriptions> CHostDescriptions::Find(const CHostSuites& suites)
{
    CHostDescriptions found;
    found.fDescriptors =
        suites.Find<HostDescriptorSuite>(kHostDescriptorSuiteName, kHostDescriptorSuiteVersion);
    found.fLists = suites.Find<HostListSuite>(kHostListSuiteName, kHostListSuiteVersion);
    found.fNames =
        suites.Find<HostStringIdSuite>(kHostStringIdSuiteName, kHostStringIdSuiteVersion);
    const bool isWhole = IsWhole(found.fDescriptors, kHostDescriptorTableVersion, 8) &&
                         IsWhole(found.fLists, kHostListTableVersion, 3) &&
                         IsWhole(found.fNames, kHostStringIdTableVersion, 1);
    return isWhole ? std::optional(found) : std::nullopt;
}

std::uint32_t CHostDescriptions::KeyOf(std::string_view name) const
{
    if (name.size() == 4)
        return FourCharKey(name);
    std::uint32_t key = 0;
    Require(fNames->KeyOf(std::string(name).c_str(), &key));
    return key;
}

CHostRecord::CHostRecord(const CHostDescriptions& host) : fHost(host)
{
    Require(fHost.Descriptors().Make(&fDescriptor));
}

CHostRecord::~CHostRecord()
{
    if (fDescriptor != nullptr)
        fHost.Descriptors().Free(fDescriptor);
}

HostDescriptor CHostRecord::Release()
{
    return std::exchange(fDescriptor, nullptr);
}

void CHostRecord::PutText(std::string_view key, const CText& text)
{
    Require(fHost.Descriptors().PutString(fDescriptor, fHost.KeyOf(key), text.CStr()));
}

void CHostRecord::PutFlag(std::string_view key, bool flag)
{
    Require(fHost.Descriptors().PutBoolean(fDescriptor, fHost.KeyOf(key), flag ? 1 : 0));
}

void CHostRecord::PutInteger(std::string_view key, std::int32_t number)
{
    Require(fHost.Descriptors().PutInteger(fDescriptor, fHost.KeyOf(key), number));
}

void CHostRecord::PutNumber(std::string_view key, double number)
{
    Require(fHost.Descriptors().PutFloat(fDescriptor, fHost.KeyOf(key), number));
}

void CHostRecord::PutRect(std::string_view key, const PixelRect& rect)
{
    CHostRecord object(fHost);
    object.PutInteger("left", rect.left);
    object.PutInteger("top", rect.top);
    object.PutInteger("right", rect.right);
    object.PutInteger("bottom", rect.bottom);
    const std::uint32_t objectKey = fHost.KeyOf(key);
    const std::uint32_t type = fHost.KeyOf("rectangle");
    Require(fHost.Descriptors().PutObject(fDescriptor, objectKey, type, object.fDescriptor));
    object.Release();
}

std::unique_ptr<CDescriptionRecord> CHostRecord::MakeRecord() const
{
    return std::make_unique<CHostRecord>(fHost);
}

void CHostRecord::PutRecords(std::string_view key,
                             std::vector<std::unique_ptr<CDescriptionRecord>> records)
{
    CHostList list(fHost.Lists());
    for (const auto& record : records) {
        auto& object = static_cast<CHostRecord&>(*record);
        Require(fHost.Lists().Append(list.Get(), kNullType, object.fDescriptor));
        object.Release();
    }
    Require(fHost.Descriptors().PutList(fDescriptor, fHost.KeyOf(key), list.Get()));
    list.Forget();
}

void CHostRecord::BeginView(const CView& view)
{
    const auto* const dialog = dynamic_cast<const CPluginDialog*>(view.GetContext());
    const std::string_view className =
        dialog != nullptr ? dialog->ClassNameOf(view) : std::string_view();
    if (!className.empty())
        PutText("class", CText(className));
    if (!view.GetID().IsNone())
        PutText("id", CText(view.GetID().Name()));
}

} // namespace Kesto

#include "robot/own_windows.h"

#include "plugin/view_info/view_description.h"
#include "plugin/view_info/window_requests.h"
#include "view/window/window.h"

#include <cmath>

namespace Host {

namespace {

using nlohmann::ordered_json;

ordered_json ToJson(const Kesto::PixelRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

class CJsonRecord : public Kesto::CDescriptionRecord {
public:
    explicit CJsonRecord(const ClassNamer& classNamer) : fClassNamer(classNamer) {}

    ordered_json Take() { return std::move(fJson); }

    void PutText(std::string_view key, const Kesto::CText& text) override
    {
        fJson[std::string(key)] = text.View();
    }
    void PutFlag(std::string_view key, bool flag) override { fJson[std::string(key)] = flag; }
    void PutInteger(std::string_view key, std::int32_t number) override
    {
        fJson[std::string(key)] = number;
    }
    void PutNumber(std::string_view key, double number) override
    {
        fJson[std::string(key)] = std::isfinite(number) ? ordered_json(number) : ordered_json();
    }
    void PutRect(std::string_view key, const Kesto::PixelRect& rect) override
    {
        fJson[std::string(key)] = ToJson(rect);
    }
    std::unique_ptr<CDescriptionRecord> MakeRecord() const override
    {
        return std::make_unique<CJsonRecord>(fClassNamer);
    }
    void PutRecords(std::string_view key,
                    std::vector<std::unique_ptr<CDescriptionRecord>> records) override
    {
        ordered_json& list = fJson[std::string(key)] = ordered_json::array();
        for (const auto& record : records)
            list.push_back(static_cast<CJsonRecord&>(*record).Take());
    }
    void BeginView(const Kesto::CView& view) override
    {
        fJson["class"] = fClassNamer(view);
        fJson["id"] = view.GetID().IsNone() ? std::string() : view.GetID().Name();
    }

private:
    const ClassNamer& fClassNamer;
    ordered_json fJson = ordered_json::object();
};

} // namespace

ordered_json DescribeWindow(const Kesto::CWindow& window, const ClassNamer& classNamer,
                            std::string_view product)
{
    CJsonRecord record(classNamer);
    Kesto::DescribeWindow(window, product, record);
    ordered_json description = record.Take();
    if (window.NativeHandle() == nullptr) // it has no frame
        description["bounds"] = ToJson(window.GetGlobalRect());
    return description;
}

ordered_json OwnWindows::Describe(void* window)
{
    const Kesto::CWindow* const found = Kesto::FindWindowOf(window);
    return found != nullptr ? DescribeWindow(*found, fClassNamer, fProduct) : ordered_json();
}

} // namespace Host

#include "vex/describe.h"

#include "plugin/view_info/view_description.h"
#include "view/tree/view.h"

#include <nlohmann/json.hpp>

#include <map>

namespace Vex {

namespace {

using nlohmann::ordered_json;
using ClassNames = std::map<const Kesto::CView*, std::string_view>;

ordered_json ToJson(const Kesto::PixelRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

class CJsonRecord : public Kesto::CDescriptionRecord {
public:
    explicit CJsonRecord(const ClassNames& classNames) : fClassNames(classNames) {}

    ordered_json Take() { return std::move(fJson); }

    void PutText(std::string_view key, const Kesto::CText& text) override
    {
        fJson[std::string(key)] = text.View();
    }
    void PutFlag(std::string_view key, bool flag) override { fJson[std::string(key)] = flag; }
    void PutRect(std::string_view key, const Kesto::PixelRect& rect) override
    {
        fJson[std::string(key)] = ToJson(rect);
    }
    std::unique_ptr<CDescriptionRecord> MakeRecord() const override
    {
        return std::make_unique<CJsonRecord>(fClassNames);
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
        const auto name = fClassNames.find(&view);
        fJson["class"] = name != fClassNames.end() ? name->second : std::string_view();
        fJson["id"] = view.GetID().IsNone() ? std::string() : view.GetID().Name();
    }

private:
    const ClassNames& fClassNames;
    ordered_json fJson = ordered_json::object();
};

} // namespace

ordered_json DescriptionOf(const CBuiltLayout& layout)
{
    ClassNames classNames;
    for (const BuiltView& built : layout.Views())
        classNames[built.view] = built.className;
    CJsonRecord record(classNames);
    Kesto::DescribeView(layout.Root(), record);
    ordered_json description{{"filter", "vex"}, {"bounds", ToJson(layout.Root().GetGlobalRect())}};
    description.update(record.Take());
    return description;
}

} // namespace Vex

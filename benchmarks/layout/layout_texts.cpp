#include "layout/layout_texts.h"

#include <span>
#include <string_view>

namespace {

struct Property {
    std::string_view key;
    std::string_view value;
    bool isText = false;
};

constexpr Property kFrame[] = {{"placement", "place_row"}, {"horizontal", "align_fill"},
                               {"vertical", "align_fill"}, {"margin", "8"},
                               {"spacing", "8"},           {"view_binding", "kBind_FixedTopRight"}};
constexpr Property kStatic[] = {
    {"scrub_id", "Group/Field", true},   {"text", "$$$/Group/Label=Label of the number:", true},
    {"text_align", "kAlign_Left"},       {"vertical", "align_center"},
    {"view_options", "kView_NoOptions"}, {"view_binding", "kBind_FixedTopLeft"}};
constexpr Property kEdit[] = {{"view_id", "Group/Field", true},
                              {"text_align", "kAlign_Left"},
                              {"text_digits", "8"},
                              {"number_value", "1"},
                              {"number_minimum", "1"},
                              {"number_maximum", "10 + 20 * 3"},
                              {"view_binding", "kBind_FixedTop + kBind_FixedLeft"}};
constexpr Property kPush[] = {{"view_id", "Group/Button", true},
                              {"button_label", "$$$/Group/Button=Apply", true},
                              {"width", "100"}};

struct Syntax {
    std::string_view beforeView, afterName, between, afterKey, quote, valueQuote, leaf, open, close;
};
constexpr Syntax kVex{"", "(", ", ", ": ", "'", "", ");\n", ") {\n", "}\n"};
constexpr Syntax kXml{"<", " ", " ", "=", "\"", "\"", "/>\n", ">\n", ""};

void AppendView(std::string& out, const Syntax& syntax, std::string_view name,
                std::span<const Property> properties, int number, bool isLeaf)
{
    out.append(syntax.beforeView).append(name).append(syntax.afterName);
    for (const Property& property : properties) {
        if (&property != properties.data())
            out.append(syntax.between);
        const std::string_view quote = property.isText ? syntax.quote : syntax.valueQuote;
        out.append(property.key).append(syntax.afterKey).append(quote).append(property.value);
        if (property.key.ends_with("_id"))
            out.append(std::to_string(number));
        out.append(quote);
    }
    out.append(isLeaf ? syntax.leaf : syntax.open);
}

std::string Make(const Syntax& syntax, int views)
{
    std::string out;
    AppendView(out, syntax, "PDialog", kFrame, 0, false);
    const auto close = [&](std::string_view name) {
        out += syntax.close.empty() ? "</" + std::string(name) + ">\n" : std::string(syntax.close);
    };
    for (int view = 0; view < views; view += 4) {
        AppendView(out, syntax, "CFramePane", kFrame, view, false);
        AppendView(out, syntax, "CStaticText", kStatic, view, true);
        AppendView(out, syntax, "CEditNumber", kEdit, view, true);
        AppendView(out, syntax, "CPushButton", kPush, view, true);
        close("CFramePane");
    }
    close("PDialog");
    return out;
}

} // namespace

std::string MakeLayoutText(int views)
{
    return Make(kVex, views);
}
std::string MakeXmlText(int views)
{
    return Make(kXml, views);
}

#include "vex/dump.h"

#include "vex/layout_reading.h"
#include "vex/values.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <stdexcept>

namespace Vex {

namespace {

using Kesto::CVexProperty;
using Kesto::VexRule;

nlohmann::json ToJson(const Kesto::CVexVariablePropertyList& variables)
{
    nlohmann::json json = nlohmann::json::object();
    for (std::size_t i = 0; i < variables.Count(); ++i) {
        const Kesto::CVexVariableProperty& variable = variables.At(i);
        nlohmann::json& value = json[*variable.Name()];
        if (variable.Type() == CVexProperty::kType_Integer)
            value = variable.Integer();
        else if (variable.Type() == CVexProperty::kType_Text)
            value = variable.Text();
    }
    return json;
}

bool IsConstant(const Kesto::CVexVariableProperty& variable)
{
    const Kesto::VexConstant* const constant = FindConstant(*variable.Name());
    return constant != nullptr && variable.Type() == CVexProperty::kType_Integer &&
           variable.Integer() == constant->value;
}

// What the text itself assigns outside of its view.
nlohmann::json OwnVariables(const Kesto::CVexVariablePropertyList& root)
{
    Kesto::CVexVariablePropertyList own;
    for (std::size_t i = 0; i < root.Count(); ++i)
        if (!IsConstant(root.At(i)))
            own.Add(root.At(i));
    return ToJson(own);
}

// Takes the views in the order of the text, as they were read.
nlohmann::json ToJson(const SyntaxNode& node, const LayoutReading& reading, std::size_t& next)
{
    const ViewReading& view = reading.views[next++];
    nlohmann::json json{{"class", view.className},
                        {"properties", ToJson(view.properties)},
                        {"layout", ToJson(view.layout)}};
    if (const SyntaxNode* const block = node.Child(VexRule::kBlock)) {
        json["variables"] = ToJson(reading.blocks.at(block->end));
        json["children"] = nlohmann::json::array();
        for (const SyntaxNode& child : block->children)
            if (child.rule == VexRule::kView)
                json["children"].push_back(ToJson(child, reading, next));
    }
    return json;
}

void PrintValues(std::ostream& out, const std::string& indent, const char* title,
                 const nlohmann::json& values)
{
    if (values.empty())
        return;
    out << indent << "  " << title << ":\n";
    for (const auto& [name, value] : values.items())
        out << indent << "    " << name << " = "
            << (value.is_null()
                    ? "undefined"
                    : value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace))
            << '\n';
}

void PrintView(std::ostream& out, const std::string& indent, const nlohmann::json& view)
{
    out << indent << view["class"].get<std::string>() << '\n';
    PrintValues(out, indent, "properties", view["properties"]);
    PrintValues(out, indent, "layout", view["layout"]);
    if (!view.contains("children"))
        return;
    PrintValues(out, indent, "variables", view["variables"]);
    for (const nlohmann::json& child : view["children"])
        PrintView(out, indent + "  ", child);
}

} // namespace

nlohmann::json DumpLayout(const CSourceText& source)
{
    const LayoutReading reading = ReadLayout(source);
    if (!reading.error.empty())
        throw std::runtime_error(source.Name() +
                                 ": this text has mistakes; `vex check` shows them");
    std::size_t next = 0;
    for (const SyntaxNode& node : reading.nodes)
        if (node.rule == VexRule::kView) {
            nlohmann::json view = ToJson(node, reading, next);
            view["textVariables"] = OwnVariables(reading.root);
            return view;
        }
    return {};
}

void PrintDump(std::ostream& out, const nlohmann::json& view)
{
    PrintValues(out, "", "variables of the whole text", view["textVariables"]);
    PrintView(out, "", view);
}

} // namespace Vex

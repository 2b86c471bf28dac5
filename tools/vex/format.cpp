#include "vex/format.h"

#include "layout/language/vex_text.h"
#include "vex/layout_reading.h"

#include <stdexcept>

namespace Vex {

namespace {

using Kesto::VexRule;

constexpr std::size_t kLineWidth = 100;
constexpr std::size_t kIndent = 4;

// The token at `at`: a name, a number, a string or a mark of one or two characters.
std::string_view TokenAt(const char* at)
{
    std::size_t length = 1;
    if (Kesto::IsVexNameStart(*at) || Kesto::IsVexDigit(*at))
        while (Kesto::CharClass(at[length]) < (Kesto::IsVexDigit(*at) ? 10 : Kesto::kCharOther))
            ++length;
    else if (*at == '\'')
        while (at[length++] != '\'')
            continue;
    else if ((at[1] == '=' && std::string_view("<>=!").find(*at) != std::string_view::npos) ||
             (at[0] == at[1] && (*at == '&' || *at == '|')))
        length = 2;
    return {at, length};
}

// A sign where an operand is due belongs to the operand.
bool EndsOperand(std::string_view token)
{
    const char last = token.back();
    return Kesto::CharClass(last) < Kesto::kCharOther || last == ')' || last == '\'';
}

// The text with one space around operators and after commas and colons, and none elsewhere.
std::string Respaced(std::string_view text)
{
    std::string spaced;
    std::string_view before = "(";
    bool touches = true; // no space comes between `before` and what follows
    const char* const end = text.data() + text.size();
    for (const char* at = Kesto::SkipVexSpace(text.data()); at < end;
         at = Kesto::SkipVexSpace(at)) {
        const std::string_view token = TokenAt(at);
        at += token.size();
        const bool isClose = token == ")" || token == "," || token == ":" || token == ";";
        const bool isCall = token == "(" && Kesto::IsVexNameStart(before.front());
        const bool isName = Kesto::CharClass(token.front()) < Kesto::kCharOther ||
                            token.front() == '\'' || token == "(";
        const bool isSign = !isName && !isClose && !EndsOperand(before);
        if (!touches && !isClose && !isCall)
            spaced += ' ';
        spaced += token;
        touches = token == "(" || token == "&" || isSign;
        before = token;
    }
    return spaced;
}

class CFormatter {
public:
    std::string Take() { return std::move(fOut); }

    void AddList(const std::vector<SyntaxNode>& nodes)
    {
        const SyntaxNode* before = nullptr;
        for (const SyntaxNode& node : nodes) {
            const bool isView = node.rule == VexRule::kView;
            if (node.rule == VexRule::kName)
                continue;
            if (before != nullptr && isView != (before->rule == VexRule::kView))
                fOut += '\n';
            if (isView)
                AddView(node);
            else
                AddLine(Respaced(node.Text()));
            before = &node;
        }
    }

private:
    void AddLine(std::string_view line)
    {
        fOut.append(fLevel * kIndent, ' ').append(line).append("\n");
    }

    void AddView(const SyntaxNode& view)
    {
        const SyntaxNode* const block = view.Child(VexRule::kBlock);
        const std::string_view tail = block != nullptr ? ") {" : ");";
        std::vector<std::string> properties;
        for (const SyntaxNode& child : view.children)
            if (child.rule == VexRule::kProperty)
                properties.push_back(Respaced(child.Text()));
        AddHead(std::string(view.Name()) + '(', properties, tail);
        if (block == nullptr)
            return;
        ++fLevel;
        AddList(block->children);
        --fLevel;
        AddLine("}");
    }

    void AddHead(const std::string& name, const std::vector<std::string>& properties,
                 std::string_view tail)
    {
        std::string line = name;
        for (const std::string& property : properties)
            line += (&property == &properties.front() ? "" : ", ") + property;
        line += tail;
        if (properties.empty() ||
            (fLevel * kIndent + line.size() <= kLineWidth && line.find('\n') == std::string::npos))
            return AddLine(line);
        AddLine(name);
        ++fLevel;
        for (const std::string& property : properties)
            AddLine(property + (&property == &properties.back() ? "" : ","));
        --fLevel;
        AddLine(tail);
    }

    std::string fOut;
    std::size_t fLevel = 0;
};

} // namespace

std::string FormatLayout(const CSourceText& source)
{
    const LayoutReading reading = ReadLayout(source);
    if (!reading.error.empty())
        throw std::runtime_error(source.Name() +
                                 ": this text has mistakes; `vex check` shows them");
    CFormatter formatter;
    formatter.AddList(reading.nodes);
    return formatter.Take();
}

} // namespace Vex

// A generator that makes no views and tells what it was handed.
#pragma once

#include "layout/placement/generator.h"
#include "layout/placement/rapid_view_scope.h"
#include "layout/vocabulary/keywords.h"

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

class CRecordingGenerator : public Kesto::CGenerator {
public:
    using OnMeasure =
        std::function<void(std::string_view, Kesto::CExpressionScope&, Kesto::CExpressionScope&)>;

    explicit CRecordingGenerator(OnMeasure onMeasure = nullptr) : fOnMeasure(std::move(onMeasure))
    {
    }

    void Measure(std::string_view className, Kesto::CExpressionScope* properties,
                 Kesto::CExpressionScope* layoutScope) override
    {
        fMeasured.emplace_back(className);
        if (fOnMeasure)
            fOnMeasure(className, *properties, *layoutScope);
    }

    Kesto::CView* Build(std::string_view className, Kesto::CExpressionScope*,
                        Kesto::CView*) override
    {
        fBuilt.emplace_back(className);
        return nullptr;
    }

    void Parse(const char* text)
    {
        const auto root =
            Kesto::CRapidViewScope::CreateRootScope(nullptr, this, nullptr, nullptr, true);
        for (const Kesto::VexConstant& constant : Kesto::ClassConstants())
            root->AddConstant(constant.name, constant.value);
        root->Parse(text);
    }

    std::vector<std::string> fMeasured;
    std::vector<std::string> fBuilt;

private:
    OnMeasure fOnMeasure;
};

// The text of the std::logic_error that `run` throws, or nothing.
template <class Run>
std::string LogicErrorOf(Run run)
{
    try {
        run();
    } catch (const std::logic_error& error) {
        return error.what();
    }
    return "";
}

// The value of any expression, conditions in parentheses included; throws std::runtime_error if it
// can't be read.
inline std::int32_t ValueOf(Kesto::CExpressionScope& scope, const std::string& text)
{
    struct ValueScope : Kesto::CExpressionScope {
        using CExpressionScope::CExpressionScope;
        using CExpressionScope::ParseValue;
    } reader(&scope);
    Kesto::VexContent value;
    const char* at = text.c_str();
    if (!reader.ParseValue(at, ",)", value))
        throw std::runtime_error(text);
    return value.integer;
}

// `core` within that many pairs of `open` and `close`.
inline std::string Nested(std::size_t depth, std::string_view open, std::string_view core,
                          std::string_view close)
{
    std::string text;
    for (std::size_t i = 0; i < depth; ++i)
        text += open;
    text += core;
    for (std::size_t i = 0; i < depth; ++i)
        text += close;
    return text;
}

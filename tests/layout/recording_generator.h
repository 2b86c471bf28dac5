// A generator that makes no views and tells what it was handed.
#pragma once

#include "layout/generator.h"
#include "layout/keywords.h"
#include "layout/rapid_view_scope.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class CRecordingGenerator : public Kesto::CGenerator {
public:
    using OnMeasure = std::function<void(std::string_view, Kesto::CExpressionScope&, Kesto::CExpressionScope&)>;

    explicit CRecordingGenerator(OnMeasure onMeasure = nullptr) : fOnMeasure(std::move(onMeasure)) {}

    void Measure(std::string_view className, Kesto::CExpressionScope* properties,
                 Kesto::CExpressionScope* layoutScope) override
    {
        fMeasured.emplace_back(className);
        if (fOnMeasure)
            fOnMeasure(className, *properties, *layoutScope);
    }

    Kesto::CView* Build(std::string_view className, Kesto::CExpressionScope* layoutScope, Kesto::CView*) override
    {
        fBuilt.emplace_back(className);
        fWidths.emplace_back();
        layoutScope->GetIntVariable("width", &fWidths.back());
        return nullptr;
    }

    void Parse(const char* text)
    {
        const auto root = Kesto::CRapidViewScope::CreateRootScope(nullptr, this, nullptr, nullptr, true);
        for (const Kesto::VexConstant& constant : Kesto::ClassConstants())
            root->AddConstant(constant.name, constant.value);
        root->Parse(text);
    }

    std::vector<std::string> fMeasured;
    std::vector<std::string> fBuilt;
    std::vector<std::int32_t> fWidths;

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

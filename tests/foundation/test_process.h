// A process for tests that translates from a map, and is current as long as it lives.
#pragma once

#include "foundation/base/process_services.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

class TestProcess final : public Kesto::CProcessServices {
public:
    using Report = std::tuple<std::string, std::string, std::uint32_t, bool>;

    TestProcess() : fFormer(SetCurrent(this)) {}
    ~TestProcess() { SetCurrent(fFormer); }

    bool TranslateKey(Kesto::CText& literal) override
    {
        asked.push_back(literal);
        const auto found = translations.find(std::string(literal.View()));
        literal = found != translations.end() ? found->second.c_str() : "spoilt";
        return found != translations.end();
    }
    bool UsesOwnStringsOnly() override
    {
        ++timesAskedForOwnStrings;
        return ownStringsOnly;
    }
    Platform::NativeWindow AlertParent() override { return frontWindow; }
    bool IsMainThread() override { return isMainThread; }
    bool PostDebugReport(const char* message, const char* file, std::uint32_t line,
                         bool throwIt) override
    {
        posted.emplace_back(message, file, line, throwIt);
        return true;
    }

    std::map<std::string, std::string> translations; // by the whole literal
    bool ownStringsOnly = false;
    int timesAskedForOwnStrings = 0;
    bool isMainThread = true;
    Platform::NativeWindow frontWindow = nullptr;
    std::vector<Kesto::CText> asked;
    std::vector<Report> posted;

private:
    Kesto::CProcessServices* fFormer;
};

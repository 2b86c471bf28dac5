// A plug-in module as the system sees it: a library with functions and resources.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>

namespace Host {

class ModuleLibrary {
public:
    // Loads the library; throws Failure with the system's words when that fails.
    explicit ModuleLibrary(const std::filesystem::path& path);
    ~ModuleLibrary();
    ModuleLibrary(const ModuleLibrary&) = delete;
    ModuleLibrary& operator=(const ModuleLibrary&) = delete;

    // The exported function of that name, or null.
    template <class Function>
    Function FindFunction(const char* name) const
    {
        return reinterpret_cast<Function>(FindAddress(name));
    }

    // The bytes of a resource, valid while the library is loaded; empty when there is none.
    std::span<const std::byte> ResourceBytes(const char* type, const char* name) const;

    // The product's module, under the name that the system keeps it by, such as "sidecar.so": in
    // the program's own folder, or where an installation has it.
    static std::filesystem::path DefaultPath();

private:
    using Address = void (*)();
    Address FindAddress(const char* name) const;

    void* fHandle;
};

} // namespace Host

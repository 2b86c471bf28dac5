#include "module_library.h"

#include "failure.h"

#include <array>

#include <windows.h>

namespace Host {

ModuleLibrary::ModuleLibrary(const std::filesystem::path& path)
    : fHandle(LoadLibraryExW(std::filesystem::absolute(path).c_str(), nullptr,
                             LOAD_WITH_ALTERED_SEARCH_PATH))
{
    if (!fHandle)
        throw Failure("the module " + TextOf(path) + " can't be loaded: system error " +
                          std::to_string(GetLastError()),
                      "Name another one with --module PATH.");
}

ModuleLibrary::~ModuleLibrary()
{
    FreeLibrary(static_cast<HMODULE>(fHandle));
}

ModuleLibrary::Address ModuleLibrary::FindAddress(const char* name) const
{
    return reinterpret_cast<Address>(
        reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(fHandle), name)));
}

std::span<const std::byte> ModuleLibrary::ResourceBytes(const char* type, const char* name) const
{
    const auto module = static_cast<HMODULE>(fHandle);
    HRSRC found = FindResourceA(module, name, type);
    HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes)
        return {};
    return {static_cast<const std::byte*>(bytes), SizeofResource(module, found)};
}

std::filesystem::path ModuleLibrary::DefaultPath()
{
    std::array<wchar_t, 32768> name = {};
    GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::filesystem::path(name.data()).parent_path() / L"sidecar.dll";
}

} // namespace Host

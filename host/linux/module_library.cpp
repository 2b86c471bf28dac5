#include "module_library.h"

#include "failure.h"
#include "lumograph/entry.h"

#include <dlfcn.h>

namespace Host {

ModuleLibrary::ModuleLibrary(const std::filesystem::path& path)
    : fHandle(dlopen(std::filesystem::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL))
{
    if (!fHandle)
        throw Failure("the module can't be loaded: " + std::string(dlerror()),
                      "Name another one with --module PATH.");
}

ModuleLibrary::~ModuleLibrary()
{
    dlclose(fHandle);
}

ModuleLibrary::Address ModuleLibrary::FindAddress(const char* name) const
{
    return reinterpret_cast<Address>(dlsym(fHandle, name));
}

std::span<const std::byte> ModuleLibrary::ResourceBytes(const char* type, const char* name) const
{
    const auto find = FindFunction<HostModuleResource>("ModuleResource");
    size_t size = 0;
    const void* bytes = find ? find(type, name, &size) : nullptr;
    return bytes ? std::span(static_cast<const std::byte*>(bytes), size)
                 : std::span<const std::byte>();
}

std::filesystem::path ModuleLibrary::DefaultPath()
{
    std::error_code error;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    const auto installed = folder.parent_path() / "lib/sidecar/sidecar.so";
    return std::filesystem::exists(installed, error) ? installed : folder / "sidecar.so";
}

} // namespace Host

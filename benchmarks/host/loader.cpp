// The least that a C++ program can do, or, with an argument, the least that a host does: it loads a
// module.
#include <dlfcn.h>
#include <string>

int main(int count, char** arguments)
{
    const std::string module = count > 1 ? arguments[1] : "";
    return !module.empty() && dlopen(module.c_str(), RTLD_NOW) == nullptr ? 1 : 0;
}

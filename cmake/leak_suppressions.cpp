// What the leak check of the sanitizers is to leave out, linked into every sanitized program.

#define SANITIZER_HOOK extern "C" [[gnu::visibility("default")]]

SANITIZER_HOOK const char* __lsan_default_suppressions();
SANITIZER_HOOK const char* __lsan_default_options();

// Fontconfig keeps its configuration for the life of the process, and refers to parts of it by
// offsets, which the check can't follow.
SANITIZER_HOOK const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

SANITIZER_HOOK const char* __lsan_default_options()
{
    return "print_suppressions=0";
}

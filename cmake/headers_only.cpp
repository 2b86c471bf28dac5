// A target needs a source to have a precompiled header.
int main() {}

// What the leak checker of the sanitizers leaves aside in every test: the font library and the toolkit's event loop
// keep their tables for the life of the process.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\nleak:libglib-2.0\n"; }

// What the leak sanitizer is to overlook: fontconfig keeps its patterns to the end.
extern "C" const char* __lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; } // NOLINT

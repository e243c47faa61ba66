# For the build of the mutants: what stands in for the system is never changed, so it may be quick.
cmake_language(DEFER CALL target_compile_options orvan_platform_simulated PRIVATE -O2)

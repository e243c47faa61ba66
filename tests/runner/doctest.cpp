// The library behind the macros, once for all suites. Signals go to the platform, as in the player.
#define DOCTEST_CONFIG_NO_POSIX_SIGNALS
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

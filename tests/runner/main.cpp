#include <doctest/doctest.h>

/// For the suites that don't bring a start of their own.
int main(int argumentCount, char** arguments) {
    return doctest::Context(argumentCount, arguments).run();
}

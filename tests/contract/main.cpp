#include "tests/contract/world.h"

#include <doctest/doctest.h>

namespace {

/// Gives each test a fresh world. Listing the tests starts none, so that needs no display.
struct FreshWorld : doctest::IReporter {
    explicit FreshWorld(const doctest::ContextOptions& /*options*/) {}

    void test_case_start(const doctest::TestCaseData& /*test*/) override { contract::startWorld(); }
    void test_case_reenter(const doctest::TestCaseData& /*test*/) override {
        contract::startWorld();
    }

    void report_query(const doctest::QueryData& /*data*/) override {}
    void test_run_start() override {}
    void test_run_end(const doctest::TestRunStats& /*stats*/) override {}
    void test_case_end(const doctest::CurrentTestCaseStats& /*stats*/) override {}
    void test_case_exception(const doctest::TestCaseException& /*exception*/) override {}
    void subcase_start(const doctest::SubcaseSignature& /*subcase*/) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData& /*assertion*/) override {}
    void log_message(const doctest::MessageData& /*message*/) override {}
    void test_case_skipped(const doctest::TestCaseData& /*test*/) override {}
};

DOCTEST_REGISTER_LISTENER("fresh-world", 1, FreshWorld);

} // namespace

int main(int argumentCount, char** arguments) {
    return doctest::Context(argumentCount, arguments).run();
}

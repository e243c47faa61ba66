#include "platform/desktop.h"

#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale is POSIX's, not C++'s

#include <ctime>
#include <string_view>

namespace platform {

char decimalSign() {
    const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (user == nullptr) return '.';
    const bool comma = std::string_view(::nl_langinfo_l(RADIXCHAR, user)) == ",";
    ::freelocale(user);
    return comma ? ',' : '.';
}

std::int32_t secondsSinceMidnight() {
    // A change of the system's time zone counts from the next call on.
    ::tzset();
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (::localtime_r(&now, &local) == nullptr) return 0;
    const int seconds = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    constexpr int lastOfTheDay = 24 * 60 * 60 - 1;
    return seconds < lastOfTheDay ? seconds : lastOfTheDay;
}

} // namespace platform

#include "platform/desktop.h"

#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale is POSIX's, not C++'s

#include <string_view>

namespace platform {

char decimalSign() {
    const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (user == nullptr) return '.';
    const bool comma = std::string_view(::nl_langinfo_l(RADIXCHAR, user)) == ",";
    ::freelocale(user);
    return comma ? ',' : '.';
}

} // namespace platform

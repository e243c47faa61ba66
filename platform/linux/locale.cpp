#include "platform/desktop.h"

#include <QCollator>
#include <QLocale>

#include <langinfo.h>
#include <locale.h> // NOLINT(modernize-deprecated-headers): newlocale is POSIX's, not C++'s

#include <cstdint>
#include <string_view>

namespace platform {
namespace {

QCollator makeCollator() {
    const QLocale user = QLocale::system().collation();
    // A desktop without a language would have its texts ordered by their codes.
    QCollator collator(user.language() == QLocale::C ? QLocale(QLocale::English) : user);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

QString textOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

char decimalSign() {
    const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (user == nullptr) return '.';
    const bool comma = std::string_view(::nl_langinfo_l(RADIXCHAR, user)) == ",";
    ::freelocale(user);
    return comma ? ',' : '.';
}

std::int32_t compareInUsersLanguage(std::string_view first, std::string_view second) {
    static const QCollator collator = makeCollator();
    return collator.compare(textOf(first), textOf(second));
}

} // namespace platform

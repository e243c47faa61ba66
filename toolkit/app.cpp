#include "toolkit/app.h"

#include "platform/desktop.h"

namespace toolkit::App {

std::string Path() { return platform::applicationFolder(); }
bool PrevInstance() { return platform::previousInstance(); }
std::string Command() { return platform::commandLineTail(); }
char DecimalSign() { return platform::decimalSign(); }
std::int32_t SecondsSinceMidnight() { return platform::secondsSinceMidnight(); }

} // namespace toolkit::App

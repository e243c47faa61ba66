#include "app/start_file.h"

#include "runtime/text.h"
#include "toolkit/app.h"

#include <string_view>

namespace {

/// Whether a command-line tail names an MP3, judged by its last three characters, case aside.
bool endsInMp3(std::string_view tail) {
    constexpr std::string_view wanted = "mp3";
    return tail.size() >= wanted.size() &&
           runtime::equalIgnoringCase(tail.substr(tail.size() - wanted.size()), wanted);
}

} // namespace

std::string startFile() {
    std::string tail = toolkit::App::Command();
    return endsInMp3(tail) ? tail : std::string();
}

// Any text as a media command: read or refused, and every refusal has its sentence.
#include "platform/media_commands.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const platform::ParsedMediaCommand parsed = platform::parseMediaCommand(text);
    if (platform::mediaErrorText(static_cast<std::uint32_t>(parsed.error)).empty()) std::abort();
    const bool opens = parsed.command.verb == platform::MediaVerb::Open;
    if (parsed.error == platform::MediaError::None && opens == parsed.command.file.empty())
        std::abort();
    return 0;
}

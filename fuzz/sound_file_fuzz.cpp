// Any bytes as a sound file: it opens with some length and decodes from any place to an end no
// later than that, or it does not open.
#include "platform/linux/media/decoder.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr std::size_t blockFrames = 1000;
constexpr std::int64_t mostFrames = 400'000; // per input: enough to end nearly all of them

/// The frames from a place to the end, or `mostFrames`; stops the process where there are too many.
void decodeFrom(platform::media::Decoder& decoder, std::int64_t place) {
    std::vector<std::byte> samples(blockFrames * decoder.format().bytesPerFrame());
    if (!decoder.seek(place)) return;
    std::int64_t frames = 0;
    while (frames < mostFrames) {
        const std::size_t got = decoder.read(samples.data(), blockFrames);
        if (got > blockFrames) std::abort();
        frames += static_cast<std::int64_t>(got);
        if (got == 0) break;
    }
    if (place + frames > decoder.frames()) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int file = ::memfd_create("sound", 0);
    if (file < 0 || ::write(file, data, size) != static_cast<ssize_t>(size)) std::abort();
    {
        platform::media::Decoder decoder;
        const auto error = decoder.open("/proc/self/fd/" + std::to_string(file));
        if (error == platform::MediaError::None) {
            if (decoder.frames() <= 0 || decoder.format().rate <= 0) std::abort();
            decodeFrom(decoder, 0);
            decodeFrom(decoder, decoder.frames() / 2);
            decodeFrom(decoder, decoder.frames() - 1);
        }
    }
    ::close(file);
    return 0;
}

#include "tests/sound/files/reference.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <mpg123.h>
#include <sndfile.h>
#include <stdexcept>

namespace sound_test {

std::vector<std::int16_t> decodeByMpg123(const std::string& path) {
    mpg123_handle* handle = mpg123_new(nullptr, nullptr);
    mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_FORCE_STEREO, 0.0);
    mpg123_param(handle, MPG123_RESYNC_LIMIT, -1, 0.0);
    std::vector<std::int16_t> all;
    int result = mpg123_open(handle, path.c_str());
    std::array<std::int16_t, 16384> samples{};
    while (result == MPG123_OK || result == MPG123_NEW_FORMAT) {
        std::size_t bytes = 0;
        result = mpg123_read(handle, samples.data(), sizeof samples, &bytes);
        all.insert(all.end(), samples.begin(),
                   samples.begin() + static_cast<std::ptrdiff_t>(bytes / 2));
    }
    mpg123_delete(handle);
    return all;
}

std::int64_t framesBySndfile(const std::string& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (file == nullptr) return 0;
    std::vector<float> samples(1024 * static_cast<std::size_t>(info.channels));
    std::int64_t frames = 0;
    while (const sf_count_t got = sf_readf_float(file, samples.data(), 1024))
        frames += got;
    sf_close(file);
    return frames;
}

std::string writeBySndfile(const std::string& name, const Samples& samples, int format) {
    SF_INFO info{};
    info.format = format;
    info.channels = samples.channels;
    info.samplerate = samples.rate;
    std::string path = folder() + name;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    const auto count = static_cast<sf_count_t>(samples.values.size());
    const bool good =
        file != nullptr && sf_write_short(file, samples.values.data(), count) == count;
    sf_close(file);
    if (!good) throw std::runtime_error("cannot write " + path);
    return path;
}

} // namespace sound_test

#include "tests/sound/support/sound_files.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <random>
#include <stdexcept>
#include <system_error>

#include <stdlib.h> // NOLINT(modernize-deprecated-headers): mkdtemp is POSIX's, not C++'s

namespace sound_test {
namespace {

struct Folder {
    std::string path;
    Folder() {
        path = (std::filesystem::temp_directory_path() / "orvan-sound-XXXXXX").native();
        if (::mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path += '/';
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
};

Bytes little(std::uint32_t value, int bytes) {
    Bytes text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> 8 * i & 0xFF);
    return text;
}

void run(const std::string& command) {
    // NOLINTNEXTLINE(bugprone-command-processor): a test's own fixed words
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

std::size_t valuesOf(int milliseconds, int rate, int channels) {
    return static_cast<std::size_t>(rate) * static_cast<std::size_t>(milliseconds) / 1000 *
           static_cast<std::size_t>(channels);
}

} // namespace

const std::string& folder() {
    static const Folder it;
    return it.path;
}

Bytes readAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    Bytes bytes(std::filesystem::file_size(path), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

std::string write(const std::string& name, const Bytes& bytes) {
    std::string path = folder() + name;
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + path);
    return path;
}

Samples tone(double hertz, int milliseconds, int rate, int channels) {
    Samples samples{rate, channels, {}};
    samples.values.resize(valuesOf(milliseconds, rate, channels));
    for (std::size_t i = 0; i < samples.values.size(); ++i) {
        const std::size_t frame = i / static_cast<std::size_t>(channels);
        const double seconds = static_cast<double>(frame) / rate;
        samples.values[i] =
            static_cast<std::int16_t>(16384 * std::sin(2 * std::numbers::pi * hertz * seconds));
    }
    return samples;
}

Samples noise(int milliseconds, int rate, int channels) {
    Samples samples{rate, channels, {}};
    samples.values.resize(valuesOf(milliseconds, rate, channels));
    std::minstd_rand random(1);
    double level = 0;
    for (std::int16_t& value : samples.values) {
        // Low frequencies stronger, as in music, so that an encoder keeps them.
        const double fresh = static_cast<double>(random()) / std::minstd_rand::max() - 0.5;
        level = 0.9 * level + fresh;
        value = static_cast<std::int16_t>(level * 8000);
    }
    return samples;
}

Samples loudNoise(int milliseconds) {
    Samples samples = noise(milliseconds);
    for (std::int16_t& value : samples.values) {
        if (value == 0) value = 1;
    }
    return samples;
}

Samples joined(Samples first, const Samples& second) {
    first.values.insert(first.values.end(), second.values.begin(), second.values.end());
    return first;
}

Bytes chunk(const char* name, const Bytes& body, std::uint32_t size) {
    return name + little(size, 4) + body + (body.size() % 2 != 0 ? Bytes(1, '\0') : Bytes());
}

Bytes chunk(const char* name, const Bytes& body) {
    return chunk(name, body, static_cast<std::uint32_t>(body.size()));
}

Bytes waveFormat(int tag, int channels, int rate, int bits) {
    const auto block = static_cast<std::uint32_t>(channels * (bits / 8));
    return little(static_cast<std::uint32_t>(tag), 2) +
           little(static_cast<std::uint32_t>(channels), 2) +
           little(static_cast<std::uint32_t>(rate), 4) +
           little(static_cast<std::uint32_t>(rate) * block, 4) + little(block, 2) +
           little(static_cast<std::uint32_t>(bits), 2);
}

Bytes riff(const Bytes& chunks) {
    return "RIFF" + little(static_cast<std::uint32_t>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

Bytes wave(const Samples& samples) {
    Bytes data(samples.values.size() * 2, '\0');
    std::memcpy(data.data(), samples.values.data(), data.size());
    return riff(chunk("fmt ", waveFormat(1, samples.channels, samples.rate, 16)) +
                chunk("data", data));
}

std::string encode(const std::string& name, const Samples& samples, const std::string& options) {
    const std::string source = write(name + ".wav", wave(samples));
    std::string target = folder() + name + ".mp3";
    run("lame --quiet " + options + " '" + source + "' '" + target + "'");
    return target;
}

std::string encodeLayerTwo(const std::string& name, const Samples& samples) {
    const std::string source = write(name + ".wav", wave(samples));
    std::string target = folder() + name + ".mp2";
    run("sox '" + source + "' '" + target + "'");
    return target;
}

} // namespace sound_test

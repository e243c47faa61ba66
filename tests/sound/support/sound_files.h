#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Sound files for tests, made when they are asked for.
namespace sound_test {

using Bytes = std::string;

/// A folder of this process, gone with it; with a trailing separator.
const std::string& folder();

Bytes readAll(const std::string& path);

/// Writes a file of the folder and returns its path.
std::string write(const std::string& name, const Bytes& bytes);

/// Samples of 16 bits, all channels in turns.
struct Samples {
    int rate = 44100;
    int channels = 2;
    std::vector<std::int16_t> values;
};

/// A tone at half of full level, on all channels.
Samples tone(double hertz, int milliseconds, int rate = 44100, int channels = 2);

/// Ever-changing sound that no two places of have in common.
Samples noise(int milliseconds, int rate = 44100, int channels = 2);

/// Noise without a silent frame, so that a recording shows each frame.
Samples loudNoise(int milliseconds);

Samples joined(Samples first, const Samples& second);

/// One chunk of a RIFF file; `size` is what it claims.
Bytes chunk(const char* name, const Bytes& body, std::uint32_t size);
Bytes chunk(const char* name, const Bytes& body);

/// The body of a WAV's format chunk.
Bytes waveFormat(int tag, int channels, int rate, int bits);

/// A WAV file of these chunks.
Bytes riff(const Bytes& chunks);

/// A plain 16-bit WAV file.
Bytes wave(const Samples& samples);

/// Encodes with lame; `options` are its own. The WAV's name decides the MP3's.
std::string encode(const std::string& name, const Samples& samples, const std::string& options);

/// Encodes to MPEG audio layer II with sox.
std::string encodeLayerTwo(const std::string& name, const Samples& samples);

} // namespace sound_test

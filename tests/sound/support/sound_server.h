#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace sound_test {

/// A sound server of this process's own, with one output that swallows what it plays. The player's
/// calls reach it, and no other.
class SoundServer {
  public:
    enum class Begin { Running, Absent };

    explicit SoundServer(Begin begin = Begin::Running);
    ~SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    /// Returns when it answers.
    void start();
    void kill();
    /// Ends it as a session's end does: it keeps what it knows for the next start.
    void end();
    void freeze();
    void thaw();

    /// Runs pactl with these words against the server. Its output.
    std::string control(const std::string& words) const;

  private:
    std::string folder_;
    pid_t process_ = 0;
};

/// Waits for a condition, 20 seconds at most. Whether it came to hold.
bool waitUntil(const std::function<bool()>& condition);

/// Records what an output of the server plays, from the construction on: 44100 frames a second,
/// left and right in turns.
class Recording {
  public:
    explicit Recording(const std::string& output = "out");
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// Waits until some sound and then half a second of silence have come in, and ends it.
    std::vector<std::int16_t> finish();

  private:
    std::string path_;
    pid_t process_ = 0;
};

/// A stretch of a recording without silence of more than `gap` frames in it.
struct Stretch {
    std::size_t start = 0; ///< frames
    std::size_t end = 0;
    [[nodiscard]] std::size_t frames() const { return end - start; }
};
std::vector<Stretch> stretchesOf(const std::vector<std::int16_t>& samples, std::size_t gap);

/// The recorder is given sound up to this many frames ahead of its time. Where the output takes
/// something back (at each start, pause and seek), that much of the recording's seam can't be
/// trusted.
inline constexpr std::size_t seam = 1103;

/// Frames of a recording in a time.
constexpr std::size_t framesOf(int milliseconds) {
    return static_cast<std::size_t>(milliseconds) * 44'100 / 1000;
}

/// Where in the source, as loud as `loudNoise`, a recorded stretch begins, if it is one piece of
/// it, sample for sample. In frames.
std::optional<std::size_t> placeOf(const std::vector<std::int16_t>& recorded, Stretch stretch,
                                   const std::vector<std::int16_t>& source);

/// The frequency of one channel of a stretch, by its zero crossings.
double frequencyOf(const std::vector<std::int16_t>& samples, Stretch stretch, int channel);

/// Root mean square of one channel of a stretch.
double levelOf(const std::vector<std::int16_t>& samples, Stretch stretch, int channel);

} // namespace sound_test

#include "tests/sound/support/sound_server.h"

#include "tests/sound/support/sound_files.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <stdlib.h> // NOLINT(modernize-deprecated-headers): setenv is POSIX's, not C++'s
#include <sys/wait.h>
#include <unistd.h>

/// The client library's own locks are made in ways that the thread sanitizer can't see.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer asks for it by this name
extern "C" const char* __tsan_default_suppressions() { return "race:libpulsecommon\n"; }

namespace sound_test {
namespace {

/// Starts a program with its output in a file. All other handles of this process stay here.
pid_t launch(const std::vector<std::string>& words, const std::string& output) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t process = ::fork();
    if (process < 0) throw std::runtime_error("cannot start " + words[0]);
    if (process > 0) return process;
    const int file = ::open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::dup2(file, 1);
    const int nowhere = ::open("/dev/null", O_RDWR);
    ::dup2(nowhere, 0);
    ::dup2(nowhere, 2);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

void endBy(pid_t& process, int signal) {
    if (process == 0) return;
    ::kill(process, signal);
    ::waitpid(process, nullptr, 0);
    process = 0;
}

bool isSilent(const std::vector<std::int16_t>& samples, std::size_t frame) {
    return samples[2 * frame] == 0 && samples[2 * frame + 1] == 0;
}

std::vector<std::int16_t> samplesOf(const std::string& path) {
    const Bytes bytes = readAll(path);
    std::vector<std::int16_t> samples(bytes.size() / 4 * 2);
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    return samples;
}

} // namespace

bool waitUntil(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

SoundServer::SoundServer(Begin begin) {
    // Its socket's name must be short, whatever the folder for temporary files is called.
    folder_ = "/tmp/orvan-pulse-XXXXXX";
    if (::mkdtemp(folder_.data()) == nullptr) throw std::runtime_error("no folder for the server");
    ::setenv("PULSE_SERVER", ("unix:" + folder_ + "/native").c_str(), 1);
    if (begin == Begin::Running) start();
}

SoundServer::~SoundServer() {
    endBy(process_, SIGKILL);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void SoundServer::start() {
    // Left over from one that was killed, these would keep the next from starting.
    std::filesystem::remove(folder_ + "/native");
    std::filesystem::remove(folder_ + "/pulse/pid");
    process_ = launch(
        {"env", "-u", "PULSE_SERVER", "HOME=" + folder_, "XDG_RUNTIME_DIR=" + folder_,
         "PULSE_RUNTIME_PATH=" + folder_ + "/pulse", "PULSE_STATE_PATH=" + folder_ + "/state",
         "pulseaudio", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "-n", "-L",
         "module-stream-restore restore_device=false", "-L",
         "module-null-sink sink_name=out rate=44100 channels=2 format=s16le", "-L",
         "module-native-protocol-unix auth-anonymous=1 socket=" + folder_ + "/native"},
        folder_ + "/server.log");
    if (!waitUntil([this] { return control("info").find("Default Sink: out") != Bytes::npos; }))
        throw std::runtime_error("the sound server does not start");
}

void SoundServer::kill() { endBy(process_, SIGKILL); }

void SoundServer::end() { endBy(process_, SIGTERM); }

void SoundServer::freeze() { ::kill(process_, SIGSTOP); }

void SoundServer::thaw() { ::kill(process_, SIGCONT); }

std::string SoundServer::control(const std::string& words) const {
    const std::string command = "LC_ALL=C pactl " + words + " 2>/dev/null";
    // NOLINTNEXTLINE(bugprone-command-processor): a test's own fixed words
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), ::pclose);
    std::string output;
    std::array<char, 4096> part{};
    while (pipe && std::fgets(part.data(), part.size(), pipe.get()) != nullptr)
        output += part.data();
    return output;
}

Recording::Recording(const std::string& output) : path_(folder() + "recording.raw") {
    std::filesystem::remove(path_);
    process_ = launch({"parec", "-d", output + ".monitor", "--format=s16le", "--rate=44100",
                       "--channels=2", "--latency-msec=20", "--raw"},
                      path_);
    // It delivers nothing for its first second or two, and what sounds then is lost.
    if (!waitUntil([this] {
            std::error_code ignored;
            return std::filesystem::file_size(path_, ignored) > 4096 && !ignored;
        }))
        throw std::runtime_error("the recorder hears nothing");
}

Recording::~Recording() { endBy(process_, SIGKILL); }

std::vector<std::int16_t> Recording::finish() {
    constexpr std::size_t rest = 22'050;
    waitUntil([this] {
        const auto samples = samplesOf(path_);
        const std::size_t frames = samples.size() / 2;
        std::size_t silent = 0;
        while (silent < frames && isSilent(samples, frames - 1 - silent))
            ++silent;
        return silent >= rest && silent < frames;
    });
    endBy(process_, SIGKILL);
    return samplesOf(path_);
}

std::vector<Stretch> stretchesOf(const std::vector<std::int16_t>& samples, std::size_t gap) {
    std::vector<Stretch> stretches;
    for (std::size_t frame = 0; frame < samples.size() / 2; ++frame) {
        if (isSilent(samples, frame)) continue;
        if (stretches.empty() || frame - stretches.back().end > gap)
            stretches.push_back({frame, frame + 1});
        stretches.back().end = frame + 1;
    }
    return stretches;
}

std::optional<std::size_t> placeOf(const std::vector<std::int16_t>& recorded, Stretch stretch,
                                   const std::vector<std::int16_t>& source) {
    const auto begin = recorded.begin() + static_cast<std::ptrdiff_t>(stretch.start * 2);
    const auto end = recorded.begin() + static_cast<std::ptrdiff_t>(stretch.end * 2);
    const auto found = std::search(source.begin(), source.end(), begin, end);
    if (found == source.end()) return std::nullopt;
    return static_cast<std::size_t>(found - source.begin()) / 2;
}

double frequencyOf(const std::vector<std::int16_t>& samples, Stretch stretch, int channel) {
    std::size_t crossings = 0;
    std::size_t first = 0;
    std::size_t last = 0;
    for (std::size_t frame = stretch.start + 1; frame < stretch.end; ++frame) {
        const auto side = static_cast<std::size_t>(channel);
        if (samples[2 * frame - 2 + side] >= 0 || samples[2 * frame + side] < 0) continue;
        if (crossings++ == 0) first = frame;
        last = frame;
    }
    if (crossings < 2) return 0;
    return static_cast<double>(crossings - 1) * 44100 / static_cast<double>(last - first);
}

double levelOf(const std::vector<std::int16_t>& samples, Stretch stretch, int channel) {
    double sum = 0;
    for (std::size_t frame = stretch.start; frame < stretch.end; ++frame) {
        const double value = samples[2 * frame + static_cast<std::size_t>(channel)];
        sum += value * value;
    }
    return std::sqrt(sum / static_cast<double>(stretch.frames()));
}

} // namespace sound_test

#include "playback/Mpeg.h"

#include "platform/media.h"
#include "platform/system.h"
#include "runtime/fixed_text.h"
#include "runtime/number_text.h"
#include "runtime/rounding.h"

#include <cstdint>

namespace {

using runtime::FixedText;
using CommandText = FixedText<255>;

} // namespace

/// Sends a command that wants no reply. The device's error text is fetched and dropped: no media
/// error is ever shown.
bool Mpeg::send(const char* command) {
    const std::uint32_t result = platform::mciSendStringA(command, nullptr, 0, 0);
    if (result == 0) return true;
    FixedText<128> errorText;
    platform::mciGetErrorStringA(result, errorText.data(), errorText.size);
    return false;
}

/// Asks the device for a number; -1 if it doesn't answer.
runtime::Int32 Mpeg::ask(const char* command) {
    FixedText<255> reply;
    if (platform::mciSendStringA(command, reply.data(), reply.size, 0) != 0) return -1;
    return runtime::roundToInt32(runtime::leadingNumber(reply.c_str()));
}

void Mpeg::FileName(platform::WindowHandle hWnd, const std::string& Path) {
    FixedText<255> shortPath;
    const std::uint32_t length =
        platform::GetShortPathNameA(Path.c_str(), shortPath.data(), shortPath.size);
    CommandText command;
    command.set("open " + shortPath.first(length) + " type MpegVideo Alias mpeg parent " +
                std::to_string(hWnd) + " Style 1073741824");
    if (!send(command.c_str())) return;
    status_ = "Idle";
    openedPath_ = Path;
}

void Mpeg::PlayM() {
    if (status_ == "Paused") {
        // The result of the resume doesn't count: the engine plays from here on in any case.
        RetourDeLaPause();
        status_ = "Playing";
        return;
    }
    CommandText command;
    command.set("play mpeg from 1 to " + runtime::textOf(Duration()));
    if (send(command.c_str())) status_ = "Playing";
}

void Mpeg::FermerMp3() {
    if (send("Close mpeg")) status_ = "Idle";
}

void Mpeg::PauseM() {
    if (send("Pause mpeg")) status_ = "Paused";
}

void Mpeg::StopM() {
    if (send("Stop mpeg")) FermerMp3();
}

void Mpeg::RetourDeLaPause() { send("Resume mpeg"); }

runtime::Int32 Mpeg::Duration() {
    // Set anew each time; a refusal shows in the query that follows.
    FixedText<255> reply;
    platform::mciSendStringA("set mpeg time format frames", reply.data(), reply.size, 0);
    return ask("status mpeg length");
}

runtime::Int32 Mpeg::CurrentPosition() { return ask("status mpeg position"); }

void Mpeg::MoveMPEG(runtime::Int32 AllezA) {
    send(("seek mpeg to " + runtime::textOf(AllezA)).c_str());
    platform::mciSendStringA("Play mpeg", nullptr, 0, 0);
}

/// probe ABILITY: says "can" or "can't", as the system that runs it answers a plain question of the
/// same kind as the test of the contract that needs the ability.

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <mmsystem.h>

#include <cstdio>
#include <string>

namespace {

/// Several blanks in a media command count as one.
bool foldedBlanks() {
    if (mciSendStringA("open waveaudio alias probe", nullptr, 0, nullptr) != 0) return false;
    char answer[16];
    const MCIERROR error = mciSendStringA("status  probe   mode", answer, sizeof answer, nullptr);
    mciSendStringA("close probe", nullptr, 0, nullptr);
    return error == 0;
}

/// A wave device is asked for its volume by its number, while it is closed.
bool volumeByNumber() {
    DWORD volume = 0;
    return waveOutGetVolume(nullptr, &volume) == MMSYSERR_NOERROR;
}

} // namespace

int main(int argumentCount, char** arguments) {
    const std::string ability = argumentCount == 2 ? arguments[1] : "";
    if (ability != "folded-blanks" && ability != "volume-by-number") return 2;
    const bool can = ability == "folded-blanks" ? foldedBlanks() : volumeByNumber();
    std::puts(can ? "can" : "can't");
    return 0;
}

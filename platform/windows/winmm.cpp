#include "platform/windows/winmm.h"

#include "platform/events.h"
#include "platform/windows/system_library.h"

namespace platform {
namespace {

[[noreturn]] void endWithoutSound() {
    fatalMessage("This system has no multimedia library (winmm.dll).");
    endProcess(1);
}

template <class Call>
void load(Call& call, HMODULE library, const char* name) {
    if (!findCall(call, library, name)) endWithoutSound();
}

Winmm loadAll() {
    const HMODULE library = loadSystemLibrary(L"winmm.dll");
    Winmm calls = {};
    load(calls.sendString, library, "mciSendStringA");
    load(calls.sendWideString, library, "mciSendStringW");
    load(calls.getErrorString, library, "mciGetErrorStringA");
    load(calls.countDevices, library, "waveOutGetNumDevs");
    load(calls.getVolume, library, "waveOutGetVolume");
    load(calls.setVolume, library, "waveOutSetVolume");
    return calls;
}

} // namespace

const Winmm& winmm() {
    static const Winmm calls = loadAll();
    return calls;
}

} // namespace platform

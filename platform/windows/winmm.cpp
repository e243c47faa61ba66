#include "platform/windows/winmm.h"

#include "platform/events.h"

#include <string>

namespace platform {
namespace {

HMODULE loadLibrary() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetSystemDirectoryW(path.data(), MAX_PATH));
    path += L"\\winmm.dll";
    return LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

[[noreturn]] void endWithoutSound() {
    fatalMessage("This system has no multimedia library (winmm.dll).");
    endProcess(1);
}

template <class Call>
void load(Call& call, HMODULE library, const char* name) {
    const FARPROC found = library == nullptr ? nullptr : GetProcAddress(library, name);
    if (found == nullptr) endWithoutSound();
    call = reinterpret_cast<Call>(reinterpret_cast<void*>(found));
}

Winmm loadAll() {
    const HMODULE library = loadLibrary();
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

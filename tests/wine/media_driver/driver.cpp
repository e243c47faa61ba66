/// A media driver for the tests under Wine, in front of Wine's own (mciqtz32.dll), which does the
/// playing. It adds what Wine's lacks and the player leans on: the time format "frames", counted
/// in milliseconds here; a seek to any place; and a position that is exactly the end once the end
/// has sounded. All else is passed on as it comes.

#include <windows.h>

#include <mmsystem.h>

#include <digitalv.h>
#include <mmddk.h>

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace {

struct Device {
    ULONGLONG due = 0; // of GetTickCount64: when the play in progress ends, if nothing holds it up
    bool playing = false;
    DWORD end = 0;                 // ms: where the play in progress ends
    DWORD latest = 0;              // ms: the position last told in this play
    std::optional<DWORD> standing; // ms: where it stands without playing, if not where Wine thinks
};

/// Only the thread that opened a device sends it commands, and the player has one.
std::unordered_map<DWORD_PTR, Device> devices;

using DriverProcedure = LRESULT(CALLBACK*)(DWORD_PTR, HDRVR, UINT, LPARAM, LPARAM);

DriverProcedure wineDriver() {
    static const auto procedure = reinterpret_cast<DriverProcedure>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryA("mciqtz32.dll"), "DriverProc")));
    return procedure;
}

/// A message as the system hands it to a driver.
struct Message {
    DWORD_PTR device;
    HDRVR handle;
    UINT number;
    LPARAM flags;
    LPARAM record;

    LRESULT passOn() const { return wineDriver()(device, handle, number, flags, record); }

    template <typename Record>
    LRESULT send(UINT what, LPARAM with, Record& about) const {
        return wineDriver()(device, handle, what, with, reinterpret_cast<LPARAM>(&about));
    }

    template <typename Record>
    Record& as() const {
        return *reinterpret_cast<Record*>(record);
    }

    DWORD status(DWORD item) const {
        MCI_STATUS_PARMS parameters = {};
        parameters.dwItem = item;
        send(MCI_STATUS, MCI_STATUS_ITEM, parameters);
        return static_cast<DWORD>(parameters.dwReturn);
    }

    DWORD length() const { return status(MCI_STATUS_LENGTH); }
    DWORD position() const { return status(MCI_STATUS_POSITION); }
    bool hasStopped() const { return LOWORD(status(MCI_STATUS_MODE)) == MCI_MODE_STOP; }
};

LRESULT open(const Message& message) {
    devices[message.device] = {};
    return message.passOn();
}

LRESULT close(const Message& message) {
    devices.erase(message.device);
    return message.passOn();
}

LRESULT set(const Message& message) {
    if ((message.flags & MCI_SET_TIME_FORMAT) == 0) return message.passOn();
    MCI_DGV_SET_PARMS parameters = {};
    parameters.dwTimeFormat = message.as<MCI_SET_PARMS>().dwTimeFormat;
    if (parameters.dwTimeFormat == MCI_FORMAT_FRAMES)
        parameters.dwTimeFormat = MCI_FORMAT_MILLISECONDS;
    return message.send(MCI_SET, message.flags, parameters);
}

/// Wine's driver would stop the next play at once if it weren't told to stop after an end.
void stopForGood(const Message& message) {
    MCI_GENERIC_PARMS nothing = {};
    message.send(MCI_STOP, MCI_WAIT, nothing);
}

/// Wine's driver stops some plays soon after they have begun: they go on where they were.
void startAgain(const Message& message, const Device& device) {
    stopForGood(message);
    MCI_DGV_PLAY_PARMS parameters = {};
    parameters.dwFrom = device.latest;
    parameters.dwTo = device.end;
    message.send(MCI_PLAY, MCI_FROM | MCI_TO, parameters);
}

/// Takes note of an end that has sounded since it was last looked at.
void noticeEnd(const Message& message, Device& device) {
    constexpr ULONGLONG early = 250; // ms: what the two clocks may differ, and more
    if (!device.playing || !message.hasStopped()) return;
    if (GetTickCount64() + early < device.due) {
        startAgain(message, device);
        return;
    }
    device.playing = false;
    device.standing = device.end;
    stopForGood(message);
}

LRESULT play(const Message& message, Device& device) {
    const DWORD length = message.length();
    MCI_DGV_PLAY_PARMS parameters = {};
    parameters.dwCallback = message.as<MCI_PLAY_PARMS>().dwCallback;
    LPARAM flags = message.flags;
    if ((flags & MCI_FROM) != 0) parameters.dwFrom = message.as<MCI_PLAY_PARMS>().dwFrom;
    if ((flags & MCI_TO) != 0) parameters.dwTo = message.as<MCI_PLAY_PARMS>().dwTo;
    if (parameters.dwFrom > length || parameters.dwTo > length) return MCIERR_OUTOFRANGE;

    noticeEnd(message, device);
    if ((flags & MCI_FROM) == 0 && device.standing) {
        flags |= MCI_FROM;
        parameters.dwFrom = *device.standing;
    }
    const DWORD start = (flags & MCI_FROM) != 0 ? parameters.dwFrom : message.position();
    const LRESULT result = message.send(MCI_PLAY, flags, parameters);
    if (result != 0) return result;
    device.playing = true;
    device.end = (flags & MCI_TO) != 0 ? parameters.dwTo : length;
    device.latest = start;
    device.due = GetTickCount64() + (device.end - std::min(start, device.end));
    device.standing.reset();
    return result;
}

LRESULT seek(const Message& message, Device& device) {
    if ((message.flags & (MCI_TO | MCI_SEEK_TO_START | MCI_SEEK_TO_END)) == 0)
        return MCIERR_MISSING_PARAMETER;
    const auto& wanted = message.as<MCI_SEEK_PARMS>();
    const DWORD length = message.length();
    DWORD place = 0;
    if ((message.flags & MCI_TO) != 0) place = wanted.dwTo;
    if ((message.flags & MCI_SEEK_TO_END) != 0) place = length;
    if (place > length) return MCIERR_OUTOFRANGE;

    MCI_SEEK_PARMS parameters = {};
    parameters.dwCallback = wanted.dwCallback;
    const LPARAM flags = (message.flags & ~(MCI_TO | MCI_SEEK_TO_END)) | MCI_SEEK_TO_START;
    const LRESULT result = message.send(MCI_SEEK, flags, parameters);
    if (result != 0) return result;
    device.playing = false;
    device.standing = place;
    return result;
}

LRESULT halt(const Message& message, Device& device) {
    noticeEnd(message, device);
    device.playing = false;
    return message.passOn();
}

LRESULT resume(const Message& message, Device& device) {
    const DWORD start = message.position();
    const LRESULT result = message.passOn();
    if (result != 0 || device.standing) return result;
    device.playing = true;
    device.due = GetTickCount64() + (device.end - std::min(start, device.end));
    return result;
}

LRESULT status(const Message& message, Device& device) {
    auto& parameters = message.as<MCI_STATUS_PARMS>();
    const bool position = (message.flags & MCI_STATUS_ITEM) != 0 &&
                          (message.flags & MCI_TRACK) == 0 &&
                          parameters.dwItem == MCI_STATUS_POSITION;
    if (!position) return message.passOn();

    // The position first: one that was asked after the end would be that of the start.
    const LRESULT result = message.passOn();
    noticeEnd(message, device);
    if (device.standing) {
        parameters.dwReturn = *device.standing;
        return 0;
    }
    if (device.playing) {
        // On a busy machine Wine tells of places behind the end before it has noticed that.
        const DWORD told = std::min(static_cast<DWORD>(parameters.dwReturn), device.end);
        device.latest = std::max(device.latest, told);
        parameters.dwReturn = device.latest;
    }
    return result;
}

} // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK
    DriverProc(DWORD_PTR id, HDRVR handle, UINT number, LPARAM flags, LPARAM record) {
    if (wineDriver() == nullptr) return number == DRV_LOAD ? 0 : MCIERR_INTERNAL;
    const Message message{id, handle, number, flags, record};
    switch (number) {
    case MCI_OPEN_DRIVER:
        return open(message);
    case MCI_CLOSE_DRIVER:
        return close(message);
    case MCI_SET:
        return set(message);
    case MCI_PLAY:
        return play(message, devices[id]);
    case MCI_SEEK:
        return seek(message, devices[id]);
    case MCI_STOP:
    case MCI_PAUSE:
        return halt(message, devices[id]);
    case MCI_RESUME:
        return resume(message, devices[id]);
    case MCI_STATUS:
        return status(message, devices[id]);
    default:
        return message.passOn();
    }
}

#include "platform/linux/media/stream_words.h"

#include <pulse/pulseaudio.h>

namespace platform::media {
namespace {

/// The name that the desktop knows the program by.
constexpr const char* programName = "orvan";

std::string trackNameOf(const std::string& hostPath) {
    const std::string name = hostPath.substr(hostPath.rfind('/') + 1);
    return pa_utf8_valid(name.c_str()) != nullptr ? name : std::string("music");
}

} // namespace

PropertiesHandle applicationProperties() {
    PropertiesHandle words(pa_proplist_new());
    if (!words) return words;
    pa_proplist_sets(words.get(), PA_PROP_APPLICATION_NAME, applicationName);
    pa_proplist_sets(words.get(), PA_PROP_APPLICATION_ID, programName);
    pa_proplist_sets(words.get(), PA_PROP_APPLICATION_ICON_NAME, programName);
    return words;
}

PropertiesHandle streamProperties(const std::string& hostPath) {
    PropertiesHandle words(pa_proplist_new());
    if (!words) return words;
    const std::string track = trackNameOf(hostPath);
    pa_proplist_sets(words.get(), PA_PROP_MEDIA_NAME, track.c_str());
    pa_proplist_sets(words.get(), PA_PROP_MEDIA_TITLE, track.c_str());
    pa_proplist_sets(words.get(), PA_PROP_MEDIA_ROLE, "music");
    pa_proplist_sets(words.get(), "module-stream-restore.id", keptVolumeName);
    return words;
}

} // namespace platform::media

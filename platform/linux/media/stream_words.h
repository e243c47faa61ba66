#pragma once

#include "platform/linux/media/pulse_handles.h"

#include <string>

/// What the player tells a sound server of itself, for mixers to show and for rules to go by.
namespace platform::media {

inline constexpr const char* applicationName = "Orvan Music Player";

/// Under what the server keeps the player's volume. A server goes by the role unless it is told,
/// and all that play music would share one volume.
inline constexpr const char* keptVolumeName = "sink-input-by-application-name:Orvan Music Player";
/// PipeWire isn't told: it goes by the role.
inline constexpr const char* volumeNameOfRole = "sink-input-by-media-role:music";

/// Of the connection. Null without memory.
PropertiesHandle applicationProperties();

/// Of a stream that plays this file. Null without memory.
PropertiesHandle streamProperties(const std::string& hostPath);

} // namespace platform::media

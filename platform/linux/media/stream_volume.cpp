#include "platform/linux/media/stream_volume.h"

#include "platform/linux/media/stream_words.h"
#include "platform/linux/media/volume_words.h"

#include <chrono>
#include <pulse/ext-stream-restore.h>
#include <pulse/pulseaudio.h>
#include <string_view>

namespace platform::media {
namespace {

constexpr std::chrono::milliseconds patience{500};

std::uint32_t wordOf(const pa_cvolume& volume, const pa_channel_map& map) {
    pa_cvolume sides = volume;
    pa_channel_map stereo{};
    pa_channel_map_init_stereo(&stereo);
    pa_channel_map from = map;
    if (pa_cvolume_remap(&sides, &from, &stereo) == nullptr) return 0xFFFFFFFF;
    return volumeWordOf({sides.values[0], sides.values[1]});
}

pa_cvolume volumeOf(std::uint32_t word) {
    const ServerVolume sides = serverVolumeOf(word);
    pa_cvolume volume{};
    volume.channels = 2;
    volume.values[0] = sides.left;
    volume.values[1] = sides.right;
    return volume;
}

/// What a callback of the server fills in for the thread that waits.
template <class Value>
struct Answer {
    Server& server;
    bool good = false;
    Value value{};
};

} // namespace

std::optional<std::uint32_t> StreamVolume::get() {
    if (const auto stream = output_.streamIndex()) {
        if (const auto word = getOfStream(*stream)) return word;
    }
    const auto kept = readKept();
    if (!kept) return std::nullopt;
    if (kept->supported) return kept->word;
    return own_.value_or(0xFFFFFFFF);
}

bool StreamVolume::set(std::uint32_t word) {
    if (const auto stream = output_.streamIndex()) {
        own_ = word;
        // The server takes a playing stream's volume over for the next one by itself.
        if (setOfStream(*stream, word)) return true;
    }
    auto kept = readKept();
    if (!kept) return false;
    own_ = word;
    if (!kept->supported) {
        output_.setStartVolume(word);
        return true;
    }
    kept->word = word;
    return writeKept(*kept);
}

std::optional<std::uint32_t> StreamVolume::getOfStream(std::uint32_t stream) {
    Server& server = output_.server();
    Answer<std::uint32_t> answer{server};
    const auto take = [](pa_context*, const pa_sink_input_info* info, int end, void* to) {
        auto* it = static_cast<Answer<std::uint32_t>*>(to);
        if (info != nullptr && end == 0) {
            it->good = true;
            it->value = wordOf(info->volume, info->channel_map);
        }
        if (end != 0) it->server.answered();
    };
    const bool answered = server.ask(
        [&](pa_context* context) {
            return pa_context_get_sink_input_info(context, stream, take, &answer);
        },
        patience);
    if (!answered || !answer.good) return std::nullopt;
    return answer.value;
}

bool StreamVolume::setOfStream(std::uint32_t stream, std::uint32_t word) {
    Server& server = output_.server();
    Answer<int> answer{server};
    const pa_cvolume volume = volumeOf(word);
    const auto take = [](pa_context*, int success, void* to) {
        auto* it = static_cast<Answer<int>*>(to);
        it->good = success != 0;
        it->server.answered();
    };
    const bool answered = server.ask(
        [&](pa_context* context) {
            return pa_context_set_sink_input_volume(context, stream, &volume, take, &answer);
        },
        patience);
    return answered && answer.good;
}

const char* StreamVolume::keptName() {
    if (keptName_ != nullptr) return keptName_;
    Server& server = output_.server();
    Answer<bool> isPipeWire{server};
    const auto take = [](pa_context*, const pa_server_info* info, void* to) {
        auto* it = static_cast<Answer<bool>*>(to);
        it->good = info != nullptr && info->server_name != nullptr;
        it->value = it->good &&
                    std::string_view(info->server_name).find("PipeWire") != std::string_view::npos;
        it->server.answered();
    };
    const bool answered = server.ask(
        [&](pa_context* context) { return pa_context_get_server_info(context, take, &isPipeWire); },
        patience);
    const char* const name = isPipeWire.value ? volumeNameOfRole : keptVolumeName;
    if (answered && isPipeWire.good) keptName_ = name;
    return name;
}

std::optional<StreamVolume::Kept> StreamVolume::readKept() {
    Server& server = output_.server();
    Answer<Kept> answer{server};
    answer.value.name = keptName();
    const auto take = [](pa_context*, const pa_ext_stream_restore_info* info, int end, void* to) {
        auto* it = static_cast<Answer<Kept>*>(to);
        if (info != nullptr && end == 0 && std::string_view(info->name) == it->value.name) {
            it->value.found = true;
            it->value.mute = info->mute;
            if (info->volume.channels > 0) it->value.word = wordOf(info->volume, info->channel_map);
            it->value.hasDevice = info->device != nullptr;
            if (info->device != nullptr) it->value.device = info->device;
        }
        if (end != 0) {
            it->value.supported = end > 0;
            it->server.answered();
        }
    };
    const bool answered = server.ask(
        [&](pa_context* context) { return pa_ext_stream_restore_read(context, take, &answer); },
        patience);
    if (!answered) return std::nullopt;
    return answer.value;
}

bool StreamVolume::writeKept(const Kept& kept) {
    Server& server = output_.server();
    Answer<int> answer{server};
    pa_ext_stream_restore_info info{};
    info.name = kept.name;
    pa_channel_map_init_stereo(&info.channel_map);
    info.volume = volumeOf(kept.word);
    info.device = kept.hasDevice ? kept.device.c_str() : nullptr;
    info.mute = kept.mute;
    const auto take = [](pa_context*, int success, void* to) {
        auto* it = static_cast<Answer<int>*>(to);
        it->good = success != 0;
        it->server.answered();
    };
    const bool answered = server.ask(
        [&](pa_context* context) {
            return pa_ext_stream_restore_write(context, PA_UPDATE_REPLACE, &info, 1, 1, take,
                                               &answer);
        },
        patience);
    return answered && answer.good;
}

} // namespace platform::media

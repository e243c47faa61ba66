#include "tests/sound/support/player_calls.h"
#include "tests/sound/support/sound_files.h"
#include "tests/sound/support/sound_server.h"

#include <doctest/doctest.h>

#include <cstddef>
#include <optional>
#include <string>

using namespace sound_test;

namespace {

/// A server with two outputs, and a file that plays on the first of them.
class TwoOutputs {
  public:
    TwoOutputs() : first_(server_.control("list short modules")) {
        server_.control("load-module module-null-sink sink_name=other rate=44100 channels=2");
        server_.control("set-default-sink out");
        recording_.emplace("other");
        file_.emplace(write("outputs.wav", wave(source_)));
        REQUIRE(send("play mpeg from 0 to 4000") == 0);
        REQUIRE(waitUntil([] { return position() > 600; }));
    }

    void control(const std::string& words) { server_.control(words); }

    /// The first output's module, by its number.
    std::string moduleOfFirst() const {
        const std::size_t name = first_.find("module-null-sink");
        const std::size_t line = first_.rfind('\n', name) + 1;
        return first_.substr(line, first_.find('\t', line) - line);
    }

    /// The other output sounds the rest of the file, from where the listener was to its very last
    /// sample, and the position never runs backwards.
    void checkRestOnOther() {
        const int left = position();
        int last = left;
        CHECK(waitUntil([&] {
            const int now = position();
            CHECK(now >= last);
            last = now;
            return now == 4000;
        }));
        const auto heard = recording_->finish();
        const auto stretches = stretchesOf(heard, 4410);
        REQUIRE(stretches.size() == 1);
        const Stretch trusted{stretches[0].start + seam, stretches[0].end};
        const auto place = placeOf(heard, trusted, source_.values);
        REQUIRE(place);
        CHECK(*place + trusted.frames() == framesOf(4000));
        CHECK(*place < framesOf(left + 100) + seam);
    }

  private:
    const SoundServer server_;
    const std::string first_;
    const Samples source_ = loudNoise(4000);
    std::optional<Recording> recording_;
    std::optional<OpenFile> file_;
};

} // namespace

TEST_CASE("when the default output changes in play, the sound goes on at the new one") {
    TwoOutputs outputs;
    outputs.control("set-default-sink other");
    outputs.checkRestOnOther();
}

TEST_CASE("when the output in use goes away, the sound goes on at the one that is left") {
    TwoOutputs outputs;
    outputs.control("unload-module " + outputs.moduleOfFirst());
    outputs.checkRestOnOther();
}

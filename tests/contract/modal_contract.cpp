#include "platform/system.h"
#include "platform/window.h"
#include "tests/contract/world.h"

#include <doctest/doctest.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

using namespace platform;

namespace {

/// A bare window at a place of its own that counts the clicks on it.
struct Clicked {
    int count = 0;
    Picture picture{120, 80, 0xFF446688U};
    contract::Window window{[this] {
        WindowEvents events;
        events.pointer = [this](const PointerEvent& event) {
            if (event.action == PointerAction::Release) ++count;
        };
        events.paint = [this]() -> const Picture& { return picture; };
        return events;
    }()};

    explicit Clicked(Point corner) { MoveWindow(window.handle, corner.x, corner.y, 120, 80, true); }

    void show() const {
        showWindow(window.handle, true);
        REQUIRE(contract::inShape(window.handle, 60, 40));
    }
    void click() const { contract::click(window.handle, 60, 40); }
    [[nodiscard]] WindowHandle handle() const { return window.handle; }
};

/// Takes the next of several steps at a tick once its condition holds.
class Steps {
  public:
    struct Step {
        std::function<bool()> ready;
        std::function<void()> run;
    };
    /// `last` runs after the steps, or in place of those that aren't ready for ten seconds.
    Steps(std::vector<Step> steps, std::function<void()> last)
        : steps_(std::move(steps)), last_(std::move(last)) {}

    [[nodiscard]] bool allTaken() const { return next_ == steps_.size(); }

  private:
    static constexpr int patience = 500; // ticks

    void tick() {
        if (ended_) return;
        if (!allTaken() && steps_[next_].ready()) return steps_[next_++].run();
        ended_ = allTaken() || ++waited_ == patience;
        if (ended_) last_();
    }

    std::vector<Step> steps_;
    std::function<void()> last_;
    std::size_t next_ = 0;
    int waited_ = 0;
    bool ended_ = false;
    contract::Timer timer_{20, [this] { tick(); }};
};

bool atOnce() { return true; }
void nothing() {}

} // namespace

TEST_CASE("a modal window keeps the user from the windows there are, not from a later one") {
    Clicked owner({100, 100});
    Clicked other({100, 300});
    std::optional<Clicked> later;
    Clicked box({400, 100});
    owner.show();
    other.show();
    const auto open = [&] {
        later.emplace(Point{400, 300});
        later->show();
    };
    const Steps steps(
        {
            {[&] { return contract::inShape(box.handle(), 60, 40); }, [&] { owner.click(); }},
            {atOnce, [&] { other.click(); }},
            {atOnce, open},
            {atOnce, [&] { later->click(); }},
            {[&] { return later->count == 1; }, [&] { box.click(); }},
            {[&] { return box.count == 1; }, nothing},
        },
        [&] { showWindow(box.handle(), false); });
    showWindowModal(box.handle());
    CHECK(steps.allTaken());
    CHECK(owner.count == 0);
    CHECK(other.count == 0);
    owner.click();
    CHECK(contract::waitUntil([&] { return owner.count == 1; }));
}

TEST_CASE("a window that two others are modal for takes input after both have gone") {
    Clicked owner({100, 100});
    Clicked first({400, 100});
    Clicked second({400, 300});
    owner.show();
    const Steps steps(
        {
            {[&] { return contract::inShape(first.handle(), 60, 40); },
             [&] { showWindowModal(second.handle()); }},
            {[&] { return contract::inShape(second.handle(), 60, 40); },
             [&] { showWindow(first.handle(), false); }},
            {atOnce, [&] { owner.click(); }},
            {atOnce, [&] { second.click(); }},
            {[&] { return second.count == 1; }, nothing},
        },
        [&] {
            showWindow(second.handle(), false);
            showWindow(first.handle(), false);
        });
    showWindowModal(first.handle());
    CHECK(steps.allTaken());
    CHECK(owner.count == 0);
    owner.click();
    CHECK(contract::waitUntil([&] { return owner.count == 1; }));
}

TEST_CASE("a message box keeps the user from the windows") {
    Clicked window({100, 100});
    window.show();
    contract::keepNextMessageOpen();
    int ticks = 0;
    const contract::Timer timer(50, [&] {
        ++ticks;
        if (ticks == 5) window.click();
        if (ticks >= 10) contract::closeWhatIsOpen();
    });
    messageBox("Text", "Title", MessageIcon::None);
    CHECK(ticks >= 10);
    CHECK(window.count == 0);
    window.click();
    CHECK(contract::waitUntil([&] { return window.count == 1; }));
}

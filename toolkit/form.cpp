#include "toolkit/form.h"

#include "platform/device_pixels.h"
#include "platform/system.h"
#include "runtime/errors.h"
#include "toolkit/accessibility.h"
#include "toolkit/event_loop.h"
#include "toolkit/guard.h"
#include "toolkit/screen.h"

#include <cstdint>
#include <utility>

namespace toolkit {

namespace {

const platform::AccessibleWindow& nothingToTell() {
    using platform::AccessiblePlace;
    static const platform::AccessibleWindow nothing{
        "",
        [] { return std::vector<std::int32_t>(); },
        [](AccessiblePlace) { return platform::AccessibleThing(); },
        [](AccessiblePlace) {},
        [](AccessiblePlace) {},
        [](std::int32_t, double) {}};
    return nothing;
}

} // namespace

Form::Form(FormData data) : data_(std::move(data)), bounds_(data_.bounds) {}

Form::~Form() { close(); }

void Form::endIfGone() const {
    if (gone_) endProgram();
}

void Form::load() {
    if (window_ != 0) return;
    endIfGone();
    bounds_ = data_.bounds;
    if (data_.centred) centre();
    createWindow();
    if (!Load) return;
    Load();
    endIfGone(); // a message in there may have seen the window go
}

void Form::centre() {
    const platform::Size frame = platform::frameSize(data_.frame);
    const Twips frameWidth = static_cast<Twips>(frame.width) * Screen::TwipsPerPixelX();
    const Twips frameHeight = static_cast<Twips>(frame.height) * Screen::TwipsPerPixelY();
    bounds_.left = (Screen::Width() - bounds_.width - frameWidth) / 2;
    bounds_.top = (Screen::Height() - bounds_.height - frameHeight) / 2;
}

void Form::createWindow() {
    const platform::Rect area = toPixels(bounds_);
    platform::WindowOptions options;
    options.title = data_.caption;
    options.frame = data_.frame;
    options.position = corner_ = {area.left, area.top};
    options.size = {area.right - area.left, area.bottom - area.top};
    platform::WindowEvents events;
    events.pointer = [this](const platform::PointerEvent& event) {
        guarded([&] { dispatch(event); });
    };
    events.key = [this](const platform::KeyEvent& event) {
        guarded([&] {
            for (Control* control : controls_)
                control->key(event);
        });
    };
    events.paint = [this]() -> const platform::Picture& {
        guarded([this] { paint(); });
        return picture_;
    };
    events.moved = [this](platform::Point corner) { moved(corner); };
    events.closing = [this] {
        guarded([this] {
            if (CloseWished) return CloseWished();
            Unload();
            if (!ClosedBySystem) return;
            gone_ = true;
            ClosedBySystem();
        });
    };
    if (Accessible)
        events.accessible = [this]() -> const platform::AccessibleWindow& { return accessible(); };
    window_ = platform::createWindow(options, std::move(events));
    for (Control* control : controls_)
        control->windowMade(window_);
    changed();
}

const platform::AccessibleWindow& Form::accessible() {
    // The system may ask while it makes the window, when the form isn't loaded yet.
    if (window_ == 0) return nothingToTell();
    if (accessibility_ == nullptr)
        accessibility_ = std::make_unique<Accessibility>(*this, Accessible());
    return accessibility_->window();
}

void Form::close() {
    if (accessibility_ != nullptr) accessibility_->stop();
    for (Timer* timer : timers_)
        timer->detach();
    if (window_ == 0) return;
    const platform::WindowHandle window = window_;
    window_ = 0;
    visible_ = false;
    captured_ = false;
    tooltip_.clear();
    platform::destroyWindow(window);
}

void Form::Unload() {
    if (window_ == 0) return;
    if (QueryUnload) QueryUnload();
    close();
}

Twips Form::Left() {
    load();
    return bounds_.left;
}

Twips Form::Top() {
    load();
    return bounds_.top;
}

Twips Form::Width() {
    load();
    return bounds_.width;
}

Twips Form::Height() {
    load();
    return bounds_.height;
}

void Form::Left(Twips left) {
    load();
    bounds_.left = left;
    place();
}

void Form::Top(Twips top) {
    load();
    bounds_.top = top;
    place();
}

void Form::Width(Twips width) {
    load();
    bounds_.width = width;
    place();
}

void Form::Height(Twips height) {
    load();
    bounds_.height = height;
    place();
}

void Form::place() {
    const platform::Rect area = toPixels(bounds_);
    corner_ = {area.left, area.top};
    platform::MoveWindow(window_, area.left, area.top, area.right - area.left,
                         area.bottom - area.top, true);
    changed();
}

void Form::moved(platform::Point corner) {
    // The echo of a property just set must not round the twips that were set.
    if (corner == corner_) return;
    corner_ = corner;
    bounds_.left = static_cast<Twips>(corner.x) * Screen::TwipsPerPixelX();
    bounds_.top = static_cast<Twips>(corner.y) * Screen::TwipsPerPixelY();
}

bool Form::Visible() {
    load();
    return visible_;
}

platform::WindowHandle Form::hWnd() {
    load();
    return window_;
}

std::int32_t Form::Icon() {
    load();
    return platform::applicationIcon();
}

void Form::WindowState(runtime::Int16 state) {
    load();
    if (state != 0 || !platform::setNormalState(window_)) runtime::raise(runtime::InvalidCall);
}

void Form::Refresh() {
    load();
    platform::paintNow(window_);
}

void Form::Show() {
    load();
    visible_ = true;
    platform::showWindow(window_, true);
}

void Form::ShowModal() {
    load();
    if (visible_) return platform::showWindow(window_, true); // to the front
    visible_ = true;
    platform::showWindowModal(window_);
    visible_ = false;
}

void Form::Hide() {
    load();
    visible_ = false;
    captured_ = false;
    platform::showWindow(window_, false);
}

void Form::changed() {
    stale_ = true;
    if (window_ == 0) return;
    platform::requestPaint(window_);
    if (accessibility_ != nullptr) accessibility_->changed();
    refreshTooltip();
}

const platform::Picture& Form::paint() {
    const double scale = platform::pictureScale(window_);
    if (!stale_ && scale == scale_) return picture_;
    stale_ = false;
    scale_ = scale;
    const platform::Rect area = toPixels(bounds_);
    const platform::Rect client{0, 0, area.right - area.left, area.bottom - area.top};
    const platform::Rect whole = platform::deviceRect(client, scale);
    picture_ = {}; // the old one goes first: there is no room for two
    picture_ = platform::Picture(whole.right, whole.bottom, pixelOf(data_.backColour));
    const Canvas canvas{picture_, scale, {}};
    lay(canvas, client, {0, 0}, data_.picture);
    for (auto control = controls_.rbegin(); control != controls_.rend(); ++control)
        if ((*control)->shown()) (*control)->paint(canvas, (*control)->area());
    return picture_;
}

} // namespace toolkit

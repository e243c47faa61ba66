#include "tests/contract/world.h"

#include <utility>

namespace contract {

Window::Window() : Window(platform::WindowEvents()) {}

Window::Window(platform::WindowEvents events) : handle(0) {
    platform::WindowOptions options;
    options.title = "Contract";
    options.position = {200, 150};
    options.size = {120, 80};
    handle = platform::createWindow(options, std::move(events));
}

} // namespace contract

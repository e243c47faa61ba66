#include "toolkit/menu.h"

#include "platform/window.h"
#include "toolkit/form.h"
#include "toolkit/guard.h"

#include <cstdint>
#include <utility>

namespace toolkit {
namespace {

/// Numbers the entries that can be picked, from 1 on, in the order of `clicks`.
std::vector<platform::MenuItem> itemsOf(const std::vector<Menu>& entries,
                                        std::vector<const Menu*>& clicks) {
    std::vector<platform::MenuItem> items;
    for (const Menu& entry : entries) {
        platform::MenuItem item;
        item.caption = entry.caption;
        if (entry.entries.empty()) {
            clicks.push_back(&entry);
            item.id = static_cast<std::int32_t>(clicks.size());
        } else {
            item.children = itemsOf(entry.entries, clicks);
        }
        items.push_back(std::move(item));
    }
    return items;
}

/// Runs the handler of what was picked, if anything was.
void click(const std::vector<const Menu*>& clicks, std::int32_t picked) {
    if (picked < 1 || static_cast<std::size_t>(picked) > clicks.size()) return;
    const Menu& entry = *clicks[static_cast<std::size_t>(picked) - 1];
    if (entry.Click) entry.Click();
}

} // namespace

void PopupMenu(Form& window, const Menu& menu) {
    std::vector<const Menu*> clicks;
    const std::vector<platform::MenuItem> items = itemsOf(menu.entries, clicks);
    const std::int32_t picked = platform::popupMenu(window.hWnd(), items);
    click(clicks, picked);
}

void SetTrayMenu(const Menu& menu) {
    std::vector<const Menu*> clicks;
    const std::vector<platform::MenuItem> items = itemsOf(menu.entries, clicks);
    platform::setTrayMenu(
        items, [clicks](std::int32_t picked) { guarded([&] { click(clicks, picked); }); });
}

} // namespace toolkit

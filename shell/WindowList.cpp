// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/WindowList.h"
#include <algorithm>

namespace shell {

std::vector<DocumentWindow*> WindowList::All() const {
    std::vector<DocumentWindow*> all;
    for (const auto& window : windows_)
        all.push_back(window.get());
    return all;
}

DocumentWindow* WindowList::Named(const QString& tag) const {
    for (auto window = windows_.rbegin(); window != windows_.rend(); ++window) {
        if ((*window)->Tag == tag)
            return window->get();
    }
    return nullptr;
}

DocumentWindow& WindowList::Add(std::unique_ptr<DocumentWindow> window) {
    windows_.push_back(std::move(window));
    BringToFront(*windows_.back());
    return *windows_.back();
}

void WindowList::BringToFront(DocumentWindow& window) {
    std::erase(order_, &window);
    order_.insert(order_.begin(), &window);
}

void WindowList::SendFrontToBack() {
    if (!order_.empty())
        std::rotate(order_.begin(), order_.begin() + 1, order_.end());
}

void WindowList::BringBackToFront() {
    if (!order_.empty())
        std::rotate(order_.begin(), order_.end() - 1, order_.end());
}

std::unique_ptr<DocumentWindow> WindowList::Take(DocumentWindow& window) {
    std::erase(order_, &window);
    const auto place =
        std::find_if(windows_.begin(), windows_.end(), [&](const auto& one) { return one.get() == &window; });
    std::unique_ptr<DocumentWindow> taken = std::move(*place);
    windows_.erase(place);
    return taken;
}

void WindowList::Clear() {
    order_.clear();
    windows_.clear();
}

} // namespace shell

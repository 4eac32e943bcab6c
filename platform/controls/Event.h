// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace controls {

/// What a control model announces. Listeners are called in the order they were added; one added while the
/// event runs is called from the next time on. A listener may destroy the control that raises the event: the
/// rest are then not called.
template <typename... Args> class Event {
public:
    using Listener = std::function<void(Args...)>;

    void connect(Listener listener) {
        if (!listeners_)
            listeners_ = std::make_shared<List>();
        listeners_->push_back(std::make_shared<Listener>(std::move(listener)));
    }
    void disconnectAll() { listeners_.reset(); }
    bool isConnected() const { return listeners_ && !listeners_->empty(); }

    void operator()(Args... args) const {
        if (!listeners_)
            return;
        const std::weak_ptr<List> alive = listeners_;
        const std::size_t count = listeners_->size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto list = alive.lock();
            if (!list || i >= list->size())
                return;
            const auto listener = (*list)[i];
            (*listener)(args...);
        }
    }

private:
    using List = std::vector<std::shared_ptr<Listener>>;
    std::shared_ptr<List> listeners_; ///< null as long as there is none: most events of most controls
};

} // namespace controls

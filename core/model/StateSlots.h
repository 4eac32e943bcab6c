// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <memory>
#include <utility>
#include <vector>

/// States of one window, or of the whole run, that belong to rooms which its owner doesn't know: one of each
/// type, made when it is asked for first, and gone with the owner.
class StateSlots {
public:
    StateSlots() = default;
    StateSlots(const StateSlots&) = delete;
    StateSlots& operator=(const StateSlots&) = delete;

    /// The state of a type; made from `arguments` where it isn't there yet.
    template <typename State, typename... Arguments> State& of(Arguments&&... arguments) {
        for (const Slot& slot : slots_) {
            if (slot.type == &kType<State>)
                return *static_cast<State*>(slot.state.get());
        }
        auto made = std::make_shared<State>(std::forward<Arguments>(arguments)...);
        slots_.push_back({&kType<State>, made});
        return *made;
    }

private:
    template <typename State> static constexpr char kType = 0; ///< its address names the type
    struct Slot {
        const void* type;
        std::shared_ptr<void> state;
    };
    std::vector<Slot> slots_; ///< a handful
};

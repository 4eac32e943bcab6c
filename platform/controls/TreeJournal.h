// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <utility>
#include <vector>

namespace controls {

/// What was done to the nodes since a record began, in order.
struct TreeView::Journal {
    enum class What : std::uint8_t { Added, Removed, Written, Key, Filled };
    struct Entry {
        What what;
        std::uint32_t slot;
        TreeNodeData before{}; ///< of a written node; of a family that was filled
        std::vector<std::pair<std::uint32_t, QString>> keys; ///< that can't be told by the nodes themselves
    };
    int records = 0;           ///< that are open
    std::uint64_t content = 0; ///< goes on with each whole new content
    std::vector<Entry> entries;

    bool isOpen() const { return records > 0; }
    void note(What what, std::uint32_t slot) {
        if (isOpen())
            entries.push_back({what, slot, {}, {}});
    }
    void noteBefore(What what, std::uint32_t slot, const TreeNodeData& before) {
        if (isOpen())
            entries.push_back({what, slot, before, {}});
    }
    void newContent() {
        ++content;
        entries.clear();
    }
};

} // namespace controls

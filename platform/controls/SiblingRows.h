// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/NodeStore.h"
#include <vector>

namespace controls {

/// Rows of siblings: from a node to its row and back. Nodes carry their row; a change among
/// them only marks them, and they are numbered again when a row is asked for. A cursor on the place touched
/// last keeps runs of changes and walks in order from numbering many siblings each time.
class SiblingRows {
public:
    explicit SiblingRows(const NodeStore& nodes) : nodes_(nodes) {}

    std::uint32_t rowOf(std::uint32_t slot) const;
    /// Slot of the child at a row, 0 when there is none. `parent` 0: top level.
    std::uint32_t childAt(std::uint32_t parent, std::uint32_t row) const;

    void inserted(std::uint32_t slot);      ///< to be told after the node was linked in
    void aboutToRemove(std::uint32_t slot); ///< to be told before it is unlinked
    void clear();

private:
    struct Cursor {
        std::uint32_t parent = 0, slot = 0, row = 0; ///< slot 0: nowhere
    };
    static constexpr std::uint32_t kUnknown = ~std::uint32_t{0};
    std::uint32_t rowWithoutWalk(std::uint32_t slot) const;
    bool walkTo(std::uint32_t slot) const;
    void leave(std::uint32_t parent) const;
    void number(std::uint32_t parent) const;
    std::uint32_t step(std::uint32_t slot, std::int64_t by) const;

    const NodeStore& nodes_;
    mutable Cursor cursor_;
    mutable std::uint32_t listed_ = 0; ///< the parent whose children stand in list_, when that isn't empty
    mutable std::vector<std::uint32_t> list_;
};

} // namespace controls

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <cstdint>
#include <memory>
#include <vector>

// Inside of TreeView: where the nodes lie.
namespace controls {

inline constexpr std::uint8_t kOddKey = 255;

// TreeNodeData::flags
inline constexpr std::uint8_t kExpanded = 1;
inline constexpr std::uint8_t kRemoved = 2;
inline constexpr std::uint8_t kRowsDirty = 4; ///< the rows of the node's children are to be numbered again
inline constexpr std::uint8_t kOwnText = 8;   ///< no name and no tag shares the text

/// Nodes in chunks that never move. A slot is used once, so that a handle on a removed node never reaches
/// another one. Slot 0 is the invisible parent of the top nodes; as a relative it means "none".
class NodeStore {
public:
    NodeStore() { clear(); }

    TreeNodeData& at(std::uint32_t slot) const { return chunks_[slot >> kBits][slot & (kSize - 1)]; }
    /// The next slot, with all fields 0.
    std::uint32_t add() {
        if ((used_ >> kBits) == chunks_.size())
            chunks_.push_back(std::make_unique_for_overwrite<TreeNodeData[]>(kSize));
        at(used_) = TreeNodeData{};
        return used_++;
    }
    /// One more than the highest slot.
    std::uint32_t end() const { return used_; }
    void clear() {
        chunks_.clear();
        used_ = 0;
        add();
    }
    std::size_t bytes() const { return chunks_.size() * kSize * sizeof(TreeNodeData); }

private:
    static constexpr std::uint32_t kBits = 12, kSize = 1u << kBits;
    std::vector<std::unique_ptr<TreeNodeData[]>> chunks_;
    std::uint32_t used_ = 0;
};

} // namespace controls

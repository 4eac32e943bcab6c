// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/TreeView.h"
#include <QHash>
#include <QSet>
#include <vector>

namespace schema {

/// Which nodes of an instance are open, and which one is selected, as it stands when this is made. In one
/// that is built anew they are found by their declarations, or else, where the schema was read anew and all
/// keys are others, by their names.
class KeptInstance {
public:
    explicit KeptInstance(const controls::TreeView& tree);
    /// Opens and selects what stands at the same places; what is gone leaves the selection to its parent. An
    /// instance that was empty before gets its root opened and selected.
    void restoreIn(controls::TreeView& tree) const;

private:
    /// Two numbers for the place of a node: by the declarations above it, and by their names.
    struct Place {
        std::size_t byKey, byName;
    };
    using Places = QHash<const controls::TreeNodeData*, Place>;
    static Places placesOf(const controls::TreeView& tree);
    static controls::TreeNode nodeAt(const controls::TreeView& tree, const Places& places,
                                     const Place& wanted);
    controls::TreeNode selectedIn(const controls::TreeView& tree, const Places& places) const;

    bool empty_;
    QSet<std::size_t> openByKey_, openByName_;
    std::vector<Place> selected_; ///< the selected node first, and those above it
    int row_ = 0, siblings_ = 0;  ///< of the selected node: one that is called otherwise stands there still
};

} // namespace schema

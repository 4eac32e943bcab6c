// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/controls/Event.h"
#include <QString>
#include <utility>

namespace controls {

/// What is dragged over a control: nodes or rows of a window of this program, or a text from elsewhere.
enum class Dragged { Nodes, Text };

/// Dragging out of a control and onto it. The widget finds out where a drag begins and what is under the
/// pointer; what is carried, and which node takes it, is the program's business. `Place` is what a control is
/// made of: a node of a tree, nothing for a point beside the nodes; a 1-based row of a list, 0 for a point
/// beside the rows.
template <typename Place> class Dragging {
public:
    // --- out of the control
    Event<bool&> Start;   ///< the user drags what is selected; cancel
    Event<QString&> Text; ///< asks for it as a text, for the text view and for other programs
    Event<> End;          ///< wherever it went, if anywhere

    // --- onto the control
    Event<bool&> Enter;                      ///< something comes over the control; refuse it altogether
    Event<Dragged, Place, QString&> Over;    ///< what, where; key of the node that takes it, empty for none
    Event<> Leave;                           ///< without a drop, or just before one
    Event<QString> Drop;                     ///< what Start was told of; key of the node that takes it
    Event<const QString&, QString> DropText; ///< the text, key of the node that takes it

    /// What the widget marks as the place that takes it.
    const Place& Highlight() const { return highlight_; }
    void SetHighlight(const Place& place) {
        if (std::exchange(highlight_, place) != place)
            highlightChanged();
    }
    Event<> highlightChanged;

private:
    Place highlight_{};
};

} // namespace controls

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/drag/DragViews.h"
#include "platform/controls/Dragging.h"
#include <QMimeData>
#include <QObject>
#include <QPointer>

namespace desktop {

/// Whether nodes or rows of this very run of the program are dragged: their control knows them.
bool HoldsNodes(const QMimeData& mime);

/// What a drag out of a view asks of its control.
struct DragSource {
    std::function<bool()> starts;  ///< false: nothing is dragged
    std::function<QString()> text; ///< for the text view and other programs
    std::function<Qt::DropAction(QDrag&)> runs;
    std::function<void()> ended;
};

/// Drags what is selected in a view. Other programs get it as text; it is made when it is asked for.
class NodeDrag : public QObject {
public:
    NodeDrag(QAbstractItemView& view, DragSource source, QObject* parent);

    /// Drags out of `view` what `control` says.
    template <typename View, typename Place>
    static void Connect(DragView<View>& view, controls::Dragging<Place>& control, QObject* parent) {
        auto* drag =
            new NodeDrag(view,
                         {[&control] {
                              bool cancel = false;
                              control.Start(cancel);
                              return !cancel;
                          },
                          [&control] {
                              QString text;
                              control.Text(text);
                              return text;
                          },
                          [&view](QDrag& one) { return view.runsDrag(one); }, [&control] { control.End(); }},
                         parent);
        view.setDragEnabled(true);
        view.dragStarts = [drag = QPointer<NodeDrag>(drag)] {
            if (drag)
                drag->Start();
        };
    }

    void Start(); ///< returns when the drag is over

private:
    QPixmap Label() const;

    QAbstractItemView& view_;
    const DragSource source_;
};

} // namespace desktop

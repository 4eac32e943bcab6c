// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/base/Listen.h"
#include "platform/controls/Dragging.h"
#include <QAbstractItemView>
#include <QBasicTimer>
#include <QObject>
#include <QPersistentModelIndex>
#include <functional>

class QDropEvent;

namespace desktop {

/// What a view asks of its control when something is dragged onto it. Nodes that take a drop are told by key.
struct DropTarget {
    std::function<bool()> enters;                                       ///< false: nothing may be dropped now
    std::function<QString(controls::Dragged, const QModelIndex&)> over; ///< key of the node that takes it
    std::function<void()> leaves;
    std::function<void(const QString& key)> drops;
    std::function<void(const QString& text, const QString& key)> dropsText;
    std::function<void(const QModelIndex&)> opens; ///< something rests over it; none where nothing opens
};

/// Takes drops on an item view for its control. Files are left to the window around it. What something rests
/// over for a moment is opened.
class NodeDrop : public QObject {
public:
    NodeDrop(QAbstractItemView& view, DropTarget target, QObject* parent);
    ~NodeDrop() override;

    /// Hands drops on `view` to `control`; `placeAt` tells what stands at an index, `indexOf` the reverse,
    /// and `opens` opens a node.
    template <typename Place, typename PlaceAt, typename IndexOf>
    static void Connect(QAbstractItemView& view, controls::Dragging<Place>& control, PlaceAt placeAt,
                        IndexOf indexOf, QObject* parent,
                        std::function<void(const QModelIndex&)> opens = {}) {
        auto* drop = new NodeDrop(
            view,
            {[&control] {
                 bool refuse = false;
                 control.Enter(refuse);
                 return !refuse;
             },
             [&control, placeAt](controls::Dragged what, const QModelIndex& index) {
                 QString key;
                 control.Over(what, placeAt(index), key);
                 return key;
             },
             [&control] { control.Leave(); }, [&control](const QString& key) { control.Drop(key); },
             [&control](const QString& text, const QString& key) { control.DropText(text, key); },
             std::move(opens)},
            parent);
        Listen(control.highlightChanged, drop,
               [drop, &control, indexOf] { drop->marked_ = indexOf(control.Highlight()); });
    }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    QString TakerUnder(const QDropEvent& event);
    void Enter(QDropEvent& event);
    void Move(QDropEvent& event);
    void Drop(QDropEvent& event);
    void Leave();
    void Mark(const QModelIndex& under);
    void RestOver(const QModelIndex& index);

    QAbstractItemView& view_;
    const DropTarget target_;
    QWidget* mark_; ///< owned by the view
    QPersistentModelIndex marked_;
    bool open_ = false; ///< something may be dropped since it came over the view
    QBasicTimer resting_;
    QPersistentModelIndex restsOver_;
};

} // namespace desktop

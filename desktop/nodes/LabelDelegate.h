// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QPointer>
#include <QStyledItemDelegate>
#include <functional>

namespace desktop {

/// What a label's editor tells.
struct LabelEvents {
    std::function<void()> givenUp;              ///< Esc, and other ways of giving up
    std::function<void(const QString&)> typed;  ///< what the editor holds by now
    std::function<bool()> kept;                 ///< whether what was handed in was refused and stays
    std::function<void(bool back)> tabbed = {}; ///< Tab, or Shift and Tab, has handed the text in
};

/// Edits a label in place. The editor is wide enough to type in from the start and takes a text of any
/// length.
class LabelDelegate : public QStyledItemDelegate {
public:
    LabelDelegate(QObject* parent, LabelEvents events);
    /// Hands in what was typed so far and closes the editor, if one is open. It stays open where that was
    /// refused.
    void Finish();
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// The width of all items in a view that lays them out alike, in pixels; 0: each by its text.
    void SetItemWidth(int width) { itemWidth_ = width; }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Fills it once: what is typed stays, whatever becomes of the node meanwhile.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void FinishByTab(bool back);

    LabelEvents events_;
    int itemWidth_ = 0;
    mutable QPointer<QWidget> editor_, filled_;
};

} // namespace desktop

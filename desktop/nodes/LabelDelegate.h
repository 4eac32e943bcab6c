// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QPointer>
#include <QStyledItemDelegate>
#include <functional>

namespace desktop {

/// Edits a label in place. The editor is wide enough to type in from the start and takes a text of any
/// length; what the user types is told to `typed`, Esc and other ways of giving up to `givenUp`.
class LabelDelegate : public QStyledItemDelegate {
public:
    LabelDelegate(QObject* parent, std::function<void()> givenUp, std::function<void(const QString&)> typed);
    /// Hands in what was typed so far and closes the editor, if one is open.
    void Finish();
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// The width of all items in a view that lays them out alike, in pixels; 0: each by its text.
    void SetItemWidth(int width) { itemWidth_ = width; }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    std::function<void(const QString&)> typed_;
    int itemWidth_ = 0;
    mutable QPointer<QWidget> editor_;
};

} // namespace desktop

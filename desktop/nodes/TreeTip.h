// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/Application.h"
#include <QAbstractItemView>
#include <QObject>

namespace desktop {

/// The tip over a tree's row whose text doesn't fit the pane or was cut when the tree was filled: the whole
/// text, cut to the length of tips in the options unless that is 0. The view shows a TreeModel.
class TreeTip : public QObject {
public:
    TreeTip(QAbstractItemView& view, const Options& options);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString TextFor(const QModelIndex& index) const; ///< empty where the row shows everything
    bool Fits(const QModelIndex& index) const;

    QAbstractItemView& view_;
    const Options& options_;
};

} // namespace desktop

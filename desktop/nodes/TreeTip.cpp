// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/TreeTip.h"
#include "core/model/NodeKind.h"
#include "desktop/base/LongWords.h"
#include "desktop/nodes/TreeModel.h"
#include <QHelpEvent>
#include <QToolTip>

namespace desktop {

namespace {

constexpr std::uint32_t kMost = 2000; // units; beyond that a tip covers the screen

/// The document's own text is no mark-up, whatever it looks like. What is longer than a line is wrapped.
QString AsTip(const QString& text) {
    constexpr qsizetype kLine = 80;
    const auto* space = text.size() > kLine ? "pre-wrap" : "pre";
    return QStringLiteral("<p style=\"white-space: %1\">%2</p>")
        .arg(QLatin1String(space), WithBreaksInLongWords(text).toHtmlEscaped());
}

} // namespace

TreeTip::TreeTip(QAbstractItemView& view, const Options& options)
    : QObject(&view), view_(view), options_(options) {
    view.viewport()->installEventFilter(this);
}

bool TreeTip::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return false;
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = view_.indexAt(help->pos());
    const QString text = TextFor(index);
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), AsTip(text), view_.viewport(), view_.visualRect(index));
    return true;
}

QString TreeTip::TextFor(const QModelIndex& index) const {
    const auto* rows = dynamic_cast<const TreeModel*>(index.model());
    const controls::TreeNode node = rows ? rows->NodeAt(index) : controls::TreeNode();
    if (!node)
        return {};
    text::CompactView whole = node.TextView();
    bool cut = false;
    if (node.KeyKind() == m_tvXML::kText && node.TagView().length > whole.length) {
        whole = node.TagView();
        cut = true;
    }
    if (!cut && Fits(index))
        return {};
    const auto wanted = static_cast<std::uint32_t>(std::max(options_.TreeToolTipShowLength, 0));
    const std::uint32_t most = wanted == 0 ? kMost : std::min(wanted, kMost);
    if (whole.length <= most)
        return whole.toString();
    whole.length = most;
    QString shown = whole.toString();
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1); // half a character would be shown as a box
    return shown + QStringLiteral("...");
}

bool TreeTip::Fits(const QModelIndex& index) const {
    const QRect row = view_.visualRect(index);
    const int wanted = view_.sizeHintForIndex(index).width();
    return row.left() >= 0 && row.left() + wanted <= view_.viewport()->width();
}

} // namespace desktop

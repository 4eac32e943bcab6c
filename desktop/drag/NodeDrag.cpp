// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/drag/NodeDrag.h"
#include "desktop/drag/TextMime.h"
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QPainter>
#include <QStyle>
#include <QTimer>
#include <memory>

namespace desktop {

namespace {

constexpr int kWidest = 240; // pixels

QString NodesFormat() {
    return QStringLiteral("application/x-vantrel-nodes-%1").arg(QCoreApplication::applicationPid());
}

/// A large part of a document is written only when it is taken.
class NodesMime : public QMimeData {
public:
    explicit NodesMime(std::function<QString()> text) : make_(std::move(text)) {}
    QStringList formats() const override { return {NodesFormat(), QStringLiteral("text/plain")}; }
    bool hasFormat(const QString& format) const override { return formats().contains(format); }
    /// From now on the text stays the same, whatever becomes of the document.
    void Keep() {
        if (const auto make = std::exchange(make_, nullptr))
            text_ = WithLineEnds(make(), u"\n");
    }

protected:
    QVariant retrieveData(const QString& format, QMetaType) const override {
        if (format != QLatin1String("text/plain"))
            return {};
        return make_ ? WithLineEnds(make_(), u"\n") : text_;
    }

private:
    std::function<QString()> make_;
    QString text_;
};

qsizetype SelectedRows(const QItemSelection& selection) {
    qsizetype rows = 0;
    for (const QItemSelectionRange& range : selection)
        rows += range.height();
    return rows;
}

} // namespace

bool HoldsNodes(const QMimeData& mime) {
    return mime.hasFormat(NodesFormat());
}

NodeDrag::NodeDrag(QAbstractItemView& view, DragSource source, QObject* parent)
    : QObject(parent), view_(view), source_(std::move(source)) {}

void NodeDrag::Start() {
    if (!source_.starts())
        return;
    const QPointer<NodeDrag> self = this;
    const QPointer<QDrag> drag = std::make_unique<QDrag>(&view_).release(); // deletes itself when it is over
    auto mime = std::make_unique<NodesMime>([self] { return self ? self->source_.text() : QString(); });
    const QPointer<NodesMime> carried = mime.get();
    drag->setMimeData(mime.release());
    drag->setPixmap(Label());
    drag->setHotSpot(QPoint(-12, -12)); // the place of the drop stays in sight
    const Qt::DropAction done = source_.runs(*drag);
    if (!self)
        return;
    // Another program may fetch the text later, when the document has changed.
    if (carried && done != Qt::IgnoreAction && !(drag && drag->target()))
        carried->Keep();
    // Behind a drop in this program, which was put off until now as well.
    QTimer::singleShot(0, this, [this] { source_.ended(); });
}

// The current one, and how many more.
QPixmap NodeDrag::Label() const {
    const QModelIndex current = view_.currentIndex().siblingAtColumn(0);
    const qsizetype more = SelectedRows(view_.selectionModel()->selection()) - 1;
    const QIcon icon = current.data(Qt::DecorationRole).value<QIcon>();
    const QFontMetrics metrics = view_.fontMetrics();
    QString text = metrics.elidedText(current.data().toString(), Qt::ElideRight, kWidest);
    if (more > 0)
        text += QStringLiteral(" +%1").arg(more);
    constexpr int kGap = 4;
    const int side = view_.style()->pixelMetric(QStyle::PM_SmallIconSize);
    const QSize size(side + metrics.horizontalAdvance(text) + 3 * kGap,
                     std::max(side, metrics.height()) + kGap);
    const double ratio = view_.devicePixelRatioF();
    QPixmap label(size * ratio);
    label.setDevicePixelRatio(ratio);
    label.fill(view_.palette().color(QPalette::Base));
    QPainter painter(&label);
    painter.setFont(view_.font());
    painter.setPen(view_.palette().color(QPalette::Highlight));
    painter.drawRect(QRect(QPoint(), size).adjusted(0, 0, -1, -1));
    icon.paint(&painter, QRect(kGap, (size.height() - side) / 2, side, side));
    painter.setPen(view_.palette().color(QPalette::Text));
    painter.drawText(QRect(side + 2 * kGap, 0, size.width(), size.height()), Qt::AlignVCenter, text);
    return label;
}

} // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/chart/ChartPane.h"
#include "desktop/base/Listen.h"
#include "desktop/base/LongWords.h"
#include "desktop/chart/ChartCopy.h"
#include <QMenu>
#include <QVBoxLayout>

namespace desktop {

ChartPane::ChartPane(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(&view_, 1);
    layout->addWidget(&word_);
    word_.setWordWrap(true);
    word_.setTextFormat(Qt::PlainText);
    word_.setMargin(3);
    word_.hide();
    view_.setAccessibleName(QStringLiteral("Chart"));
    setFocusProxy(&view_);
    connect(&view_, &ChartView::contextMenuWanted, this, &ChartPane::ShowMenu);
}

void ChartPane::SetChart(controls::Chart* chart, const services::Services* services) {
    chart_ = chart;
    services_ = services;
    view_.SetTable(nullptr);
    bond_ = std::make_unique<QObject>();
    if (!chart)
        return;
    Listen(chart->changed, bond_.get(), [this] { ShowLook(); });
    Listen(chart->dataChanged, bond_.get(), [this] { DataChanged(); });
    ShowLook();
    DataChanged();
}

void ChartPane::ShowLook() {
    view_.SetLook(chart_->chartType(), chart_->ShowLegend());
    setVisible(chart_->Visible());
    ShowWord();
}

void ChartPane::DataChanged() {
    view_.SetTable(nullptr);
    unread_ = true;
    if (isVisible())
        QMetaObject::invokeMethod(
            this, [this] { Read(); }, Qt::QueuedConnection);
}

void ChartPane::Read() {
    if (!chart_ || !isVisible() || !std::exchange(unread_, false))
        return;
    view_.SetTable(&chart_->Data());
    ShowWord();
}

void ChartPane::ShowWord() {
    const ChartPicture picture = view_.Picture();
    const QString word = QStringList{picture.table->word, WordOf(picture)}.join(u' ').trimmed();
    word_.setText(WithBreaksInLongWords(word));
    word_.setVisible(!word.isEmpty());
}

void ChartPane::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Read();
}

void ChartPane::ShowMenu(const QPoint& globalPlace) {
    const ChartPicture picture = view_.Picture();
    QMenu menu(this);
    const QAction* copy = menu.addAction(QStringLiteral("复制(&C)"));
    const QAction* save = menu.addAction(QStringLiteral("另存为(&A)..."));
    menu.addSeparator();
    const QAction* all = menu.addAction(QStringLiteral("显示全部(&0)"));
    for (QAction* action : menu.actions())
        action->setEnabled(!picture.table->series.empty());
    const QAction* chosen = menu.exec(globalPlace);
    // The document may be gone by now.
    if (!chosen || !chart_)
        return;
    if (chosen == copy)
        CopyChart(view_.Picture(), view_.size());
    else if (chosen == save)
        SaveChart(*services_, view_.Picture(), view_.size());
    else if (chosen == all)
        view_.ShowAll();
}

} // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/base/QtProgress.h"
#include <QApplication>
#include <QLabel>

namespace desktop {

namespace {
constexpr qint64 kQuietMilliseconds = 500;
constexpr qint64 kRepaintMilliseconds = 50;
constexpr int kWholeBar = 1000;
constexpr int kLongestName = 400; // pixels
} // namespace

void QtProgress::Begin(const QString& what) {
    what_ = what;
    cancelled_ = false;
    since_.start();
}

void QtProgress::Open() {
    QWidget* parent = QApplication::activeWindow();
    auto label = std::make_unique<QLabel>();
    label->setTextFormat(Qt::PlainText);
    label->setText(label->fontMetrics().elidedText(what_, Qt::ElideMiddle, kLongestName));
    dialog_ = std::make_unique<QProgressDialog>(parent);
    dialog_->setLabel(label.release());
    dialog_->setWindowModality(Qt::ApplicationModal);
    dialog_->setAutoClose(false);
    dialog_->setAutoReset(false);
    dialog_->setMinimumDuration(0);
    dialog_->setMinimumWidth(kLongestName + 60);
    QObject::connect(dialog_.get(), &QProgressDialog::canceled, dialog_.get(), [this] { cancelled_ = true; });
    dialog_->show();
    shownAt_.start();
}

bool QtProgress::Step(qint64 done, qint64 total) {
    if (cancelled_)
        return false;
    if (!dialog_) {
        if (since_.elapsed() < kQuietMilliseconds)
            return true;
        Open();
    } else if (shownAt_.elapsed() < kRepaintMilliseconds) {
        return true;
    }
    shownAt_.start();
    dialog_->setRange(0, total > 0 ? kWholeBar : 0);
    dialog_->setValue(total > 0 ? static_cast<int>(done * kWholeBar / total) : 0);
    // Only the bar's window takes keys and clicks now: it is modal.
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    return !cancelled_;
}

void QtProgress::LastStretch() {
    if (!dialog_ && since_.elapsed() < kQuietMilliseconds)
        return;
    if (!dialog_)
        Open();
    dialog_->setCancelButton(nullptr);
    dialog_->setRange(0, kWholeBar);
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
}

void QtProgress::End() {
    dialog_.reset();
}

} // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/BrowserAdapter.h"
#include "desktop/base/Listen.h"
#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QLibrary>
#include <QTimer>

namespace desktop {

BrowserAdapter::BrowserAdapter(controls::WebBrowser& model, QWidget& page, QObject* parent)
    : QObject(parent), model_(model), page_(page) {
    page.installEventFilter(this);
    Listen(model.navigated, this, [this] {
        stale_ = true;
        if (page_.isVisible())
            Show();
    });
    Listen(model.focusRequested, this, [this] {
        QWidget& target = view_ ? static_cast<QWidget&>(*view_) : page_;
        target.setFocus(Qt::OtherFocusReason);
    });
}

bool BrowserAdapter::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Show && stale_)
        Show();
    return false;
}

void BrowserAdapter::Show() {
    if (!view_ && !failed_)
        MakeView();
    stale_ = false;
    if (view_)
        view_->Show(model_.LocationURL());
}

void BrowserAdapter::MakeView() {
    QLibrary module(QCoreApplication::applicationDirPath() + QStringLiteral("/libvantrel_browser"));
    const auto make =
        reinterpret_cast<decltype(&vantrel_make_page_view)>(module.resolve("vantrel_make_page_view"));
    if (!make) {
        failed_ = true;
        auto* message =
            new QLabel(QStringLiteral("The browser view can't be loaded: ") + module.errorString(), &page_);
        message->setTextFormat(Qt::PlainText);
        message->setWordWrap(true);
        message->setAlignment(Qt::AlignCenter);
        page_.layout()->addWidget(message);
        return;
    }
    // The engine's surface makes the window system build the top window anew, and a window manager may put
    // that elsewhere: once it has, the window goes back to its place.
    constexpr int kPlacedByThen = 300;
    QWidget* top = page_.window();
    QTimer::singleShot(kPlacedByThen, top, [top, place = top->pos()] {
        if (!top->isMaximized() && !top->isFullScreen() && top->pos() != place)
            top->move(place);
    });
    view_ = make(&page_);
    page_.layout()->addWidget(view_);
    page_.setFocusProxy(view_);
}

} // namespace desktop

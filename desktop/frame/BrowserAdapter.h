// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/browser/PageView.h"
#include "platform/controls/Controls.h"
#include <QObject>
#include <QPointer>

namespace desktop {

/// A page view on a WebBrowser control. The web engine is loaded when the page is first shown.
class BrowserAdapter : public QObject {
public:
    /// `page` is the tab's page, with a layout.
    BrowserAdapter(controls::WebBrowser& model, QWidget& page, QObject* parent);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show();
    void MakeView();

    controls::WebBrowser& model_;
    QWidget& page_;
    QPointer<PageView> view_;
    bool failed_ = false;
    bool stale_ = false; ///< the control was sent somewhere and the view doesn't show it yet
};

} // namespace desktop

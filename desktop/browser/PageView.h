// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <QWidget>

namespace desktop {

/// What the browser module makes: a widget that shows a local page, harmless whatever the page holds.
class PageView : public QWidget {
public:
    using QWidget::QWidget;
    /// Shows a local file by its path. Nothing else is ever fetched.
    virtual void Show(const QString& path) = 0;
};

/// The module's one function. The widget belongs to `parent`.
extern "C" Q_DECL_EXPORT PageView* vantrel_make_page_view(QWidget* parent);

} // namespace desktop

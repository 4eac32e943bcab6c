// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "desktop/frame/DocumentView.h"
#include <QMdiSubWindow>

namespace desktop {

/// The frame around a document's widgets. Its X only asks: the window goes when the document does.
class DocumentSubWindow : public QMdiSubWindow {
    Q_OBJECT
public:
    explicit DocumentSubWindow(DocumentWindow& window);
    DocumentWindow* Window() const { return window_; } ///< null once detached
    DocumentView& View() const { return *view_; }
    void Detach();

Q_SIGNALS:
    void closeWanted();

protected:
    bool focusNextPrevChild(bool next) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ShowCaption();

    DocumentWindow* window_;
    DocumentView* view_;
};

} // namespace desktop

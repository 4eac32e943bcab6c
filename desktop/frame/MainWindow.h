// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "shell/frmMDIMain.h"
#include <QMainWindow>
#include <memory>

class QComboBox;
class QMdiSubWindow;
class QMenu;
class QToolBar;
namespace Ui {
class frmMDIMain;
}

namespace desktop {

class DocumentSubWindow;
class EditNodesDialog;
class FindDialog;

/// The widgets of the frame: menu bar, toolbars, address box, status bar, and a sub-window for each document.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(frmMDIMain& frame);
    ~MainWindow() override;

Q_SIGNALS:
    void painted(); ///< once, when the window has been shown

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeBars();
    void MakeAddressBox(QToolBar& bar);
    void MakeShortcuts();
    void FollowFrame();
    void FollowDialogs();
    void FormAdded(DocumentWindow& window);
    void FormRemoved(const DocumentWindow& window);
    void ActiveFormChanged(DocumentWindow* window);
    void SubWindowActivated(QMdiSubWindow* window);
    void ShowPopup(const QPoint& globalPlace);
    void NextPane(int step);
    DocumentSubWindow* SubWindow(const DocumentWindow* window) const;

    frmMDIMain& frame_;
    std::unique_ptr<Ui::frmMDIMain> ui_;
    QMenu* popup_ = nullptr;
    QComboBox* address_ = nullptr;
    // Made when they are asked for first.
    EditNodesDialog* editNodes_ = nullptr;
    FindDialog* find_ = nullptr;
    bool following_ = false;     ///< the frame changes its windows: the area's signals aren't the user's
    bool nextMaximised_ = false; ///< the window that was closed last was
    bool clicked_ = false; ///< the frame follows a click: the area shows the window already, an icon as one
    bool painted_ = false;
};

} // namespace desktop

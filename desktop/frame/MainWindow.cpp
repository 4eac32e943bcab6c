// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/MainWindow.h"
#include "desktop/base/Listen.h"
#include "desktop/base/Twips.h"
#include "desktop/dialogs/EditNodesDialog.h"
#include "desktop/dialogs/ExchangeSkin.h"
#include "desktop/dialogs/FindDialog.h"
#include "desktop/dialogs/MakeSkin.h"
#include "desktop/dialogs/OptionsDialog.h"
#include "desktop/frame/AddressBox.h"
#include "desktop/frame/DocumentSubWindow.h"
#include "desktop/frame/FileDrop.h"
#include "desktop/frame/MdiArrange.h"
#include "desktop/frame/MenuAdapter.h"
#include "desktop/frame/StatusAdapter.h"
#include "desktop/frame/ToolbarAdapter.h"
#include "desktop/frame/WindowMenu.h"
#include "ui_frmMDIMain.h"
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>

namespace desktop {

namespace {

// Not every keyboard has the menu key.
void OpenContextMenu() {
    QWidget* focus = QApplication::focusWidget();
    if (!focus)
        return;
    const QPoint place = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, focus->mapToGlobal(place));
    QCoreApplication::sendEvent(focus, &event);
}

} // namespace

MainWindow::MainWindow(frmMDIMain& frame) : frame_(frame), ui_(std::make_unique<Ui::frmMDIMain>()) {
    ui_->setupUi(this);
    resize(size().boundedTo(screen()->availableSize() * 0.95));
    MakeBars();
    MakeShortcuts();
    new FileDrop(*this, [this](const QStringList& names) {
        for (const QString& name : names)
            frame_.OpenNamed(name);
    });
    FollowFrame();
    FollowDialogs();
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] { frame_.RefreshMenu(); });
    for (DocumentWindow* window : frame_.Forms())
        FormAdded(*window);
    ActiveFormChanged(frame_.ActiveForm());
}

MainWindow::~MainWindow() {
    disconnect(ui_->MDIArea, nullptr, this, nullptr); // its windows go one by one and are activated meanwhile
}

// --- bars --------------------------------------------------------------------------------------------------

void MainWindow::MakeBars() {
    auto* menus = new MenuAdapter(this);
    popup_ = menus->Fill(frame_.Menus, *ui_->MenuBar);
    new WindowMenu(frame_, *ui_->MenuBar->findChild<QMenu*>(QStringLiteral("mnuWindow")), this);
    for (const auto& toolbar : frame_.Toolbars) {
        auto* bar = new QToolBar(this);
        bar->setIconSize(QSize(16, 16));
        // The last one has the address box beside it and takes a row of its own.
        if (toolbar == frame_.Toolbars.back()) {
            addToolBarBreak();
            MakeAddressBox(*bar);
        }
        new ToolbarAdapter(*toolbar, *bar, this);
        addToolBar(bar);
    }
    new StatusAdapter(frame_.StatusBar1(), *ui_->StatusBar1, this);
}

void MainWindow::MakeAddressBox(QToolBar& bar) {
    auto* label = new QLabel(frame_.lbAddress, &bar);
    label->setObjectName(QStringLiteral("lbAddress"));
    label->setContentsMargins(4, 0, 4, 0);
    address_ = new QComboBox(&bar);
    address_->setObjectName(QStringLiteral("cmbAddress"));
    address_->setAccessibleName(frame_.lbAddress);
    address_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    address_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    address_->setMinimumContentsLength(20);
    label->setBuddy(address_);
    bar.addWidget(label);
    bar.addWidget(address_);
    new AddressBox(frame_.cmbAddress(), *address_, this);
}

void MainWindow::MakeShortcuts() {
    const auto add = [this](const char* keys, auto act) {
        connect(new QShortcut(QKeySequence(QLatin1String(keys)), this), &QShortcut::activated, this, act);
    };
    for (const char* keys : {"Ctrl+Tab", "Ctrl+F6"})
        add(keys, [this] { frame_.NextWindow(); });
    for (const char* keys : {"Ctrl+Shift+Tab", "Ctrl+Shift+F6"})
        add(keys, [this] { frame_.PreviousWindow(); });
    add("Ctrl+F4", [this] { frame_.CloseForm(frame_.ActiveForm()); });
    add("F3", [this] { frame_.FindNext(false); });
    add("Shift+F3", [this] { frame_.FindNext(true); });
    add("F6", [this] { NextPane(1); });
    add("Shift+F6", [this] { NextPane(-1); });
    add("Shift+F10", [] { OpenContextMenu(); });
    for (const char* keys : {"Ctrl+L", "Alt+D"})
        add(keys, [this] {
            address_->setFocus(Qt::ShortcutFocusReason);
            address_->lineEdit()->selectAll();
        });
}

// Tree, path, tabs, page, toolbars, address box, and around again.
void MainWindow::NextPane(int step) {
    std::vector<QWidget*> panes;
    if (const DocumentSubWindow* window = SubWindow(frame_.ActiveForm()))
        panes = window->View().Panes();
    for (QToolBar* bar : findChildren<QToolBar*>())
        for (QToolButton* button : bar->findChildren<QToolButton*>())
            if (button->isEnabled() && button->isVisible() && button->focusPolicy() != Qt::NoFocus) {
                panes.push_back(button);
                break;
            }
    panes.push_back(address_);
    QWidget* focus = QApplication::focusWidget();
    const auto holds = [focus](QWidget* pane) { return pane == focus || pane->isAncestorOf(focus); };
    const auto found = std::find_if(panes.begin(), panes.end(), holds);
    const auto count = static_cast<std::ptrdiff_t>(panes.size());
    const std::ptrdiff_t at = found == panes.end() ? (step > 0 ? -1 : 0) : found - panes.begin();
    panes[static_cast<std::size_t>((at + step + count) % count)]->setFocus(Qt::ShortcutFocusReason);
}

// --- documents ---------------------------------------------------------------------------------------------

void MainWindow::FollowFrame() {
    connect(ui_->MDIArea, &QMdiArea::subWindowActivated, this, &MainWindow::SubWindowActivated);
    Listen(frame_.formAdded, this, [this](DocumentWindow* window) { FormAdded(*window); });
    Listen(frame_.formRemoved, this, [this](DocumentWindow* window) { FormRemoved(*window); });
    Listen(frame_.activeFormChanged, this, [this](DocumentWindow* window) { ActiveFormChanged(window); });
    Listen(frame_.arranged, this, [this](int code) {
        // A window that changes its shape gives the focus to the next widget.
        const QPointer<QWidget> focus = QApplication::focusWidget();
        Arrange(*ui_->MDIArea, code);
        if (focus)
            focus->setFocus(Qt::OtherFocusReason);
    });
    Listen(frame_.mousePointerChanged, this, [](int pointer) {
        if (pointer == vbHourglass)
            QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QGuiApplication::restoreOverrideCursor();
    });
    Listen(frame_.ended, this, [] { QCoreApplication::exit(0); });
}

void MainWindow::FollowDialogs() {
    Listen(frame_.optionsShown, this, [this](frmOptions& options) { OptionsDialog(options, this).exec(); });
    Listen(frame_.editNodesShown, this, [this](nodes::frmEditNodes& form) {
        if (!editNodes_)
            editNodes_ = new EditNodesDialog(form, this);
        editNodes_->ShowForm();
    });
    FollowExchange(frame_.exchangeDialogs, *this);
    FollowMakeDialogs(frame_.makeDialogs, *this);
    Listen(frame_.findShown, this, [this](textview::frmFind& form) {
        if (!find_)
            find_ = new FindDialog(form, this);
        find_->ShowInFront();
    });
}

DocumentSubWindow* MainWindow::SubWindow(const DocumentWindow* window) const {
    for (QMdiSubWindow* sub : ui_->MDIArea->subWindowList())
        if (auto* candidate = qobject_cast<DocumentSubWindow*>(sub);
            candidate && candidate->Window() == window)
            return window ? candidate : nullptr;
    return nullptr;
}

void MainWindow::FormAdded(DocumentWindow& window) {
    const QScopedValueRollback guard(following_, true);
    const QMdiSubWindow* active = ui_->MDIArea->activeSubWindow();
    const bool maximised = !active || active->isMaximized();
    auto* sub = new DocumentSubWindow(window);
    connect(sub, &DocumentSubWindow::closeWanted, this, [this, sub] {
        if (sub->Window())
            frame_.CloseForm(sub->Window());
    });
    connect(&sub->View(), &DocumentView::contextMenuWanted, this, &MainWindow::ShowPopup);
    ui_->MDIArea->addSubWindow(sub);
    if (maximised)
        sub->showMaximized();
    else
        sub->show();
    sub->View().FocusFirst();
}

// The widgets may be in the middle of an event: they let go of the document now and disappear later.
void MainWindow::FormRemoved(const DocumentWindow& window) {
    const QScopedValueRollback guard(following_, true);
    DocumentSubWindow* sub = SubWindow(&window);
    if (!sub)
        return;
    nextMaximised_ = sub->isMaximized();
    sub->Detach();
    ui_->MDIArea->removeSubWindow(sub);
    sub->hide();
    sub->deleteLater();
}

void MainWindow::ActiveFormChanged(DocumentWindow* window) {
    if (clicked_)
        return;
    const QScopedValueRollback guard(following_, true);
    DocumentSubWindow* sub = SubWindow(window);
    if (!sub)
        return;
    if (std::exchange(nextMaximised_, false)) // as the one was that was closed
        sub->showMaximized();
    else if (sub->isMinimized())
        sub->showNormal();
    ui_->MDIArea->setActiveSubWindow(sub);
    sub->View().FocusAgain();
}

// The area tells of null when another program is in front: the document stays the active one.
void MainWindow::SubWindowActivated(QMdiSubWindow* window) {
    const auto* sub = qobject_cast<DocumentSubWindow*>(window);
    if (following_ || !sub || !sub->Window() || sub->Window() == frame_.ActiveForm())
        return;
    const QScopedValueRollback guard(clicked_, true);
    frame_.ActivateForm(sub->Window());
}

// It opens before the press that asked for it is over: another node or row may be current already.
// In a schema window what can be inserted stands in it as well.
void MainWindow::ShowPopup(const QPoint& globalPlace) {
    frame_.RefreshMenu();
    QMenu* elements = ui_->MenuBar->findChild<QMenu*>(QStringLiteral("mnuXSD"));
    popup_->removeAction(elements->menuAction());
    if (elements->menuAction()->isEnabled())
        popup_->insertMenu(popup_->actions().value(0), elements);
    popup_->popup(globalPlace);
}

// --- the window's own events -------------------------------------------------------------------------------

void MainWindow::paintEvent(QPaintEvent* event) {
    QMainWindow::paintEvent(event);
    if (!std::exchange(painted_, true))
        QTimer::singleShot(0, this, &MainWindow::painted);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(frame_.QueryUnload());
}

} // namespace desktop

// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/nodes/ListEditing.h"
#include "desktop/base/Twips.h"
#include "nodes/ListPlace.h"
#include "nodes/ListState.h"
#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <limits>

namespace desktop {

namespace {
constexpr int kOffersAtOnce = 12;
}

ListEditing::ListEditing(DocumentWindow& window, QTreeView& report)
    : window_(window), report_(report), editor_(new QLineEdit(report.viewport())),
      button_(new QToolButton(report.viewport())), events_(*editor_, this) {
    editor_->setObjectName(QStringLiteral("txtListView"));
    editor_->setMaxLength(std::numeric_limits<int>::max());
    button_->setObjectName(QStringLiteral("cmdPop"));
    button_->setText(QStringLiteral("..."));
    // A press goes on to the list otherwise, which takes the focus: the editor would close, and the button
    // with it, before the click is done.
    button_->setFocusPolicy(Qt::NoFocus);
    button_->setFocusProxy(editor_);
    ConnectOffers();
    ConnectEditor();
    ConnectCells();
    ShowEditor();
    TellGeometry();
}

void ListEditing::ConnectEditor() {
    controls::TextBox& model = window_.txtListView;
    events_.Bind(model, *editor_);
    Listen(model.changed, this, [this] { ShowEditor(); });
    Listen(model.moved, this, [this] { Place(); });
    Listen(window_.cmdPop.changed, this, [this] { ShowEditor(); });
    Listen(window_.cmdPop.moved, this, [this] { Place(); });
    Listen(model.selectionChanged, this, [this] {
        const controls::TextBox& box = window_.txtListView;
        editor_->setSelection(static_cast<int>(box.SelStart()), static_cast<int>(box.SelLength()));
    });
    connect(editor_, &QLineEdit::textEdited, this,
            [this](const QString& text) { window_.txtListView.UserTyped(text); });
    const auto selected = [this] {
        const bool any = editor_->hasSelectedText();
        window_.txtListView.UserSelected(any ? editor_->selectionStart() : editor_->cursorPosition(),
                                         any ? editor_->selectionLength() : 0);
    };
    connect(editor_, &QLineEdit::selectionChanged, this, selected);
    connect(editor_, &QLineEdit::cursorPositionChanged, this, selected);
    connect(button_, &QToolButton::clicked, this, [this] {
        if (offered_.stringList().isEmpty())
            window_.cmdPop.Click();
        else
            ShowOffers({});
    });
    Listen(window_.tmList.changed, this, [this] {
        if (window_.tmList.Enabled())
            follow_.start(window_.tmList.Interval, this);
        else
            follow_.stop();
    });
}

// The list of what can be chosen is the completer's: typing narrows it, and what isn't in it can be typed all
// the same. Its first column stands for the item's own line.
void ListEditing::ConnectOffers() {
    offers_.setModel(&offered_);
    offers_.setWidget(editor_);
    offers_.setCaseSensitivity(Qt::CaseInsensitive);
    offers_.setFilterMode(Qt::MatchContains);
    offers_.setMaxVisibleItems(kOffersAtOnce);
    connect(&offers_, qOverload<const QString&>(&QCompleter::activated), this, [this](const QString& text) {
        controls::ComboBox& combo = Offers();
        combo.UserChose(static_cast<int>(combo.Items().indexOf(text)));
    });
    connect(editor_, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (!offered_.stringList().isEmpty())
            ShowOffers(text);
    });
    const auto follow = [this] {
        offered_.setStringList(Offers().Items());
        button_->setText(offered_.stringList().isEmpty() ? QStringLiteral("...") : QString());
        button_->setArrowType(offered_.stringList().isEmpty() ? Qt::NoArrow : Qt::DownArrow);
    };
    for (controls::ComboBox* combo : {&nodes::ListOf(window_).cmbValue, &nodes::ListOf(window_).cmbLVSAC})
        Listen(combo->changed, this, follow);
    editor_->installEventFilter(this);
}

controls::ComboBox& ListEditing::Offers() const {
    nodes::ListState& state = nodes::ListOf(window_);
    return state.cmbLVSAC.Items().isEmpty() ? state.cmbValue : state.cmbLVSAC;
}

void ListEditing::ShowOffers(const QString& typed) {
    offers_.setCompletionPrefix(typed);
    offers_.complete();
}

// Alt+Down and F4 open the list, as in any box with a list. They are no shortcuts meanwhile.
bool ListEditing::OpensOffers(QKeyEvent& event) {
    const bool open = event.key() == Qt::Key_F4 ||
                      (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
    if (!open || offered_.stringList().isEmpty())
        return false;
    event.accept();
    if (event.type() == QEvent::KeyPress)
        ShowOffers({});
    return true;
}

void ListEditing::ConnectCells() {
    report_.viewport()->installEventFilter(this);
    const auto scrolled = [this] {
        TellGeometry();
        if (window_.tmList.Enabled())
            window_.tmList.Tick();
    };
    connect(report_.verticalScrollBar(), &QScrollBar::valueChanged, this, scrolled);
    connect(report_.horizontalScrollBar(), &QScrollBar::valueChanged, this, scrolled);
    connect(report_.header(), &QHeaderView::sectionResized, this, [this](int section, int, int width) {
        window_.ListView1.ColumnWidths[static_cast<std::size_t>(section)] = ToTwips(width);
        nodes::LayListViewTextBox(window_);
    });
    Listen(window_.ListView1.ensureVisible, this, [this](int row) {
        report_.scrollTo(report_.model()->index(row - 1, 0));
        TellGeometry();
    });
    Listen(window_.ListView1.reset, this, [this] { TellGeometry(); });
    connect(&report_, &QAbstractItemView::doubleClicked, this, [this] { cellClick_.stop(); });
}

void ListEditing::TellGeometry() {
    controls::ListView& list = window_.ListView1;
    list.Width = ToTwips(report_.viewport()->width());
    list.Height = ToTwips(report_.viewport()->height());
    const QModelIndex top = report_.indexAt(QPoint(0, 1));
    if (top.isValid())
        list.RowHeight = ToTwips(report_.visualRect(top).height());
    list.UserScrolled(top.isValid() ? top.row() + 1 : 1, -ToTwips(report_.horizontalScrollBar()->value()));
}

void ListEditing::ShowEditor() {
    const controls::TextBox& model = window_.txtListView;
    if (editor_->text() != model.Text())
        editor_->setText(model.Text());
    // A toolbar button closes the editor without taking the focus, which would go to any other widget then.
    if (!model.Visible() && editor_->hasFocus())
        report_.setFocus(Qt::OtherFocusReason);
    editor_->setVisible(model.Visible());
    button_->setVisible(model.Visible() && window_.cmdPop.Visible());
    if (model.Visible())
        Place();
}

void ListEditing::Place() {
    const auto rectangle = [](const controls::Bounds& place) {
        return QRect(ToPixels(place.Left), ToPixels(place.Top), ToPixels(place.Width),
                     ToPixels(place.Height));
    };
    editor_->setGeometry(rectangle(window_.txtListView.Place()));
    button_->setGeometry(rectangle(window_.cmdPop.Place()));
}

bool ListEditing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == report_.viewport())
        TellGeometry();
    if (event->type() == QEvent::MouseButtonPress && watched == report_.viewport())
        MousePressed(static_cast<QMouseEvent*>(event)->pos());
    if (event->type() == QEvent::MouseButtonRelease && watched == report_.viewport())
        MouseReleased(static_cast<QMouseEvent*>(event)->pos());
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    return key && watched == editor_ && OpensOffers(*static_cast<QKeyEvent*>(event));
}

void ListEditing::MousePressed(const QPoint& place) {
    cellClick_.stop();
    window_.ListView1.MouseDown();
    const QModelIndex cell = report_.indexAt(place);
    const bool current = cell.isValid() && cell.row() + 1 == window_.ListView1.SelectedItem();
    pressed_ = current && cell.column() > 0 && QApplication::keyboardModifiers() == Qt::NoModifier
                   ? QPersistentModelIndex(cell)
                   : QPersistentModelIndex();
}

void ListEditing::MouseReleased(const QPoint& place) {
    if (pressed_.isValid() && report_.indexAt(place) == pressed_)
        cellClick_.start(QApplication::doubleClickInterval(), this);
    else
        pressed_ = QPersistentModelIndex();
}

void ListEditing::timerEvent(QTimerEvent* event) {
    if (event->timerId() == follow_.timerId()) {
        TellGeometry();
        window_.tmList.Tick();
        return;
    }
    cellClick_.stop();
    if (pressed_.isValid())
        window_.ListView1.CellClick(pressed_.row() + 1, pressed_.column() + 1);
    pressed_ = QPersistentModelIndex();
}

} // namespace desktop

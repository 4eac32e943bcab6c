// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/DocumentView.h"
#include "core/model/Frame.h"
#include "desktop/base/Listen.h"
#include "desktop/base/ReasonBeside.h"
#include "desktop/base/Twips.h"
#include "desktop/bind/LineAdapter.h"
#include "desktop/bind/TabAdapter.h"
#include "desktop/bind/TimerAdapter.h"
#include "desktop/frame/BrowserAdapter.h"
#include "desktop/frame/CompactPage.h"
#include "desktop/frame/DocumentDragging.h"
#include "desktop/nodes/DiagnosticsPane.h"
#include "desktop/nodes/ListAdapter.h"
#include "desktop/nodes/ListEditing.h"
#include "desktop/nodes/TreeAdapter.h"
#include "desktop/nodes/TreeTip.h"
#include "desktop/text/TextAdapter.h"
#include "schema/CheckBeside.h"
#include "ui_frmXMLEdit.h"
#include "window/WindowEvents.h"
#include <QApplication>

namespace desktop {

namespace {

// Tables and chart share the height of their page.
constexpr int kTablePart = 2, kChartPart = 1, kSharedHeight = 1000;

QHash<QString, QWidget*> PagesOf(const Ui::frmXMLEdit& ui) {
    return {
        {QStringLiteral("listview"), ui.listview},       {QStringLiteral("textview"), ui.textview},
        {QStringLiteral("tableview"), ui.tableview},     {QStringLiteral("browserview"), ui.browserview},
        {QStringLiteral("compactview"), ui.compactview}, {QStringLiteral("schema"), ui.txtSchema},
    };
}

} // namespace

/// Joins the widgets with the document, as long as it lives.
class DocumentView::Bond : public QObject {
public:
    Bond(DocumentWindow& window, const Ui::frmXMLEdit& ui, int width);
    ~Bond() override;
    const DocumentWindow& Window() const { return window_; }

private:
    void ConnectSplitters(int width);
    void ShowSecondPane();
    void ConnectTables();

    DocumentWindow& window_;
    const Ui::frmXMLEdit& ui_;
    TreeAdapter tree_;
    ListAdapter list_;
    ListEditing cells_;
    DiagnosticsPane diagnostics_;
    TextAdapter text_, text2_, schema_;
    LineAdapter path_;
    TimerAdapter steps_, checks_;
    BrowserAdapter browser_;
    std::unique_ptr<CompactPage> compact_; ///< null in a window without such a tab
    TabAdapter tabs_;
    DocumentDragging dragging_;
};

DocumentView::Bond::Bond(DocumentWindow& window, const Ui::frmXMLEdit& ui, int width)
    : window_(window), ui_(ui), tree_(window.tvXML, *ui.tvXML, nullptr),
      list_(window.ListView1, {*ui.listview, *ui.ListView1, *ui.ListView1Icons}, nullptr),
      cells_(window, *ui.ListView1), diagnostics_(window, *ui.lvDiagnostics),
      text_(window.rtxtXML, *ui.rtxtXML, nullptr), text2_(window.rtxtXML2, *ui.rtxtXML2, nullptr),
      schema_(window.txtSchema, *ui.txtSchema, nullptr), path_(window.txtXPath, *ui.txtXPath, nullptr),
      steps_(window.tmText, nullptr), checks_(schema::CheckBesideOf(window).tmCheck, nullptr),
      browser_(window.IE, *ui.browserview, nullptr),
      compact_(window.kind.schema ? std::make_unique<CompactPage>(window, ui) : nullptr),
      tabs_(window.tbsXML, *ui.tbsXML, *ui.pages, PagesOf(ui), nullptr), dragging_(window, ui) {
    ConnectSplitters(width);
    ConnectTables();
    ui.rtxtXML->isInUse = [&window] { return &window.TextInUse() == &window.rtxtXML; };
    ui.rtxtXML2->isInUse = [&window] { return &window.TextInUse() == &window.rtxtXML2; };
}

DocumentView::Bond::~Bond() {
    for (TextView* pane : {ui_.rtxtXML, ui_.rtxtXML2})
        pane->isInUse = nullptr;
    ui_.pctTableView->SetWindow(nullptr);
    ui_.chtAna->SetChart(nullptr, nullptr);
}

void DocumentView::Bond::ConnectSplitters(int width) {
    ui_.pctSplit->setStretchFactor(0, 0);
    ui_.pctSplit->setStretchFactor(1, 1);
    const int left = ToPixels(window_.msngVSplit);
    ui_.pctSplit->setSizes({left, std::max(width - left, left)});
    connect(ui_.pctSplit, &QSplitter::splitterMoved, this,
            [this](int position) { window::SetVSplitPosition(window_, ToTwips(position)); });
    ShowSecondPane();
    Listen(window_.pctSplitText.changed, this, [this] { ShowSecondPane(); });
}

void DocumentView::Bond::ShowSecondPane() {
    const bool split = window_.pctSplitText.Visible();
    ui_.rtxtXML2->setVisible(split);
    if (split) // half for each
        ui_.textview->setSizes({ui_.textview->height(), ui_.textview->height()});
}

void DocumentView::Bond::ConnectTables() {
    ui_.pctTableView->SetWindow(&window_);
    ui_.chtAna->SetChart(&window_.chtAna, &window_.app.services);
    ui_.tableview->setStretchFactor(0, kTablePart);
    ui_.tableview->setStretchFactor(1, kChartPart);
    ui_.tableview->setSizes({kTablePart * kSharedHeight, kChartPart * kSharedHeight});
}

DocumentView::DocumentView(DocumentWindow& window, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::frmXMLEdit>()) {
    ui_->setupUi(this);
    setObjectName(window.kind.Name);
    bond_ = std::make_unique<Bond>(window, *ui_, width());
    reason_ = std::make_unique<ReasonBeside>(window.app.frame().StatusBar1(), *this);
    ConnectContextMenus();
    new TreeTip(*ui_->tvXML, window.app.options);
}

DocumentView::~DocumentView() = default;

void DocumentView::Detach() {
    bond_.reset();
}

void DocumentView::ConnectContextMenus() {
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(ui_->tvXML), static_cast<QAbstractItemView*>(ui_->ListView1),
          static_cast<QAbstractItemView*>(ui_->ListView1Icons), static_cast<QAbstractItemView*>(ui_->tvRes),
          static_cast<QAbstractItemView*>(ui_->lvRes)}) {
        view->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(view, &QWidget::customContextMenuRequested, this, [this, view](const QPoint& place) {
            Q_EMIT contextMenuWanted(view->viewport()->mapToGlobal(place));
        });
    }
    connect(&ui_->pctTableView->View(), &SheetView::contextMenuWanted, this,
            &DocumentView::contextMenuWanted);
    for (const TextView* pane : {ui_->rtxtXML, ui_->rtxtXML2})
        connect(pane, &TextView::contextMenuWanted, this, &DocumentView::contextMenuWanted);
}

QWidget* DocumentView::Page() const {
    QWidget* page = ui_->pages->currentWidget();
    if (page == ui_->listview)
        return ui_->listview->currentWidget();
    if (page == ui_->tableview)
        return &ui_->pctTableView->View();
    if (page == ui_->compactview)
        return ui_->tvRes;
    if (page != ui_->textview)
        return page;
    return bond_->Window().brtxtXML2Focus && !ui_->rtxtXML2->isHidden() ? ui_->rtxtXML2 : ui_->rtxtXML;
}

void DocumentView::FocusFirst() {
    if (ui_->pages->currentWidget() == ui_->textview)
        Page()->setFocus(Qt::OtherFocusReason);
    else
        ui_->tvXML->setFocus(Qt::OtherFocusReason);
}

void DocumentView::FocusAgain() {
    const QWidget* focus = QApplication::focusWidget();
    if (focus && isAncestorOf(focus) && focus->isVisible())
        return;
    QWidget* last = focusWidget();
    if (last && last->isVisible())
        last->setFocus(Qt::OtherFocusReason);
    else
        FocusFirst();
}

std::vector<QWidget*> DocumentView::Panes() const {
    std::vector<QWidget*> panes{ui_->tvXML, ui_->txtXPath, ui_->tbsXML};
    if (const QWidget* page = ui_->pages->currentWidget(); page == ui_->compactview)
        for (QWidget* pane : CompactPage::Panes(*ui_))
            panes.push_back(pane);
    else if (page == ui_->textview && !ui_->rtxtXML2->isHidden())
        panes.insert(panes.end(), {ui_->rtxtXML, ui_->rtxtXML2});
    else
        panes.push_back(Page());
    if (ui_->chtAna->isVisible())
        panes.push_back(&ui_->chtAna->View());
    if (!ui_->lvDiagnostics->isHidden())
        panes.push_back(ui_->lvDiagnostics);
    return panes;
}

} // namespace desktop

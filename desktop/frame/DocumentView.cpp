// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame/DocumentView.h"
#include "core/sync/Views.h"
#include "desktop/base/Twips.h"
#include "desktop/bind/LineAdapter.h"
#include "desktop/bind/TabAdapter.h"
#include "desktop/frame/BrowserAdapter.h"
#include "desktop/frame/DocumentDragging.h"
#include "desktop/nodes/ListAdapter.h"
#include "desktop/nodes/ListEditing.h"
#include "desktop/nodes/TreeAdapter.h"
#include "desktop/nodes/TreeTip.h"
#include "desktop/text/TextAdapter.h"
#include "ui_frmXMLEdit.h"

namespace desktop {

struct DocumentView::Adapters {
    Adapters(DocumentWindow& window, const Ui::frmXMLEdit& ui, const QHash<QString, QWidget*>& pages)
        : tree(window.tvXML, *ui.tvXML, nullptr),
          list(window.ListView1, {*ui.listview, *ui.ListView1, *ui.ListView1Icons}, nullptr),
          cells(window, *ui.ListView1), text(window.rtxtXML, *ui.rtxtXML, nullptr),
          text2(window.rtxtXML2, *ui.rtxtXML2, nullptr), path(window.txtXPath, *ui.txtXPath, nullptr),
          browser(window.IE, *ui.browserview, nullptr),
          tabs(window.tbsXML, *ui.tbsXML, *ui.pages, pages, nullptr), dragging(window, ui) {}
    TreeAdapter tree;
    ListAdapter list;
    ListEditing cells;
    TextAdapter text, text2;
    LineAdapter path;
    BrowserAdapter browser;
    TabAdapter tabs;
    DocumentDragging dragging;
};

DocumentView::DocumentView(DocumentWindow& window, QWidget* parent)
    : QWidget(parent), window_(&window), ui_(std::make_unique<Ui::frmXMLEdit>()) {
    ui_->setupUi(this);
    setObjectName(window.kind.Name);
    MakeAdapters();
    ConnectLayout();
    new TreeTip(*ui_->tvXML, window.app.options);
}

DocumentView::~DocumentView() = default;

void DocumentView::MakeAdapters() {
    const QHash<QString, QWidget*> pages{
        {QStringLiteral("listview"), ui_->listview},       {QStringLiteral("textview"), ui_->textview},
        {QStringLiteral("tableview"), ui_->tableview},     {QStringLiteral("browserview"), ui_->browserview},
        {QStringLiteral("compactview"), ui_->compactview}, {QStringLiteral("schema"), ui_->txtSchema},
    };
    adapters_ = std::make_unique<Adapters>(*window_, *ui_, pages);
}

void DocumentView::ConnectLayout() {
    ui_->pctSplit->setStretchFactor(0, 0);
    ui_->pctSplit->setStretchFactor(1, 1);
    const int left = ToPixels(window_->msngVSplit);
    ui_->pctSplit->setSizes({left, std::max(width() - left, left)});
    connect(ui_->pctSplit, &QSplitter::splitterMoved, this, [this](int position) {
        if (window_)
            SetVSplitPosition(*window_, ToTwips(position));
    });

    const auto showSecondPane = [this] {
        if (!window_)
            return;
        ui_->rtxtXML2->setVisible(window_->pctSplitText.Visible());
        if (window_->pctSplitText.Visible()) // half for each
            ui_->textview->setSizes({ui_->textview->height(), ui_->textview->height()});
    };
    showSecondPane();
    Listen(window_->pctSplitText.changed, this, showSecondPane);

    const auto showSchema = [this] {
        if (window_)
            ui_->txtSchema->setPlainText(window_->txtSchema.Text());
    };
    showSchema();
    Listen(window_->txtSchema.changed, this, showSchema);
    Listen(window_->txtSchema.focusRequested, this,
           [this] { ui_->txtSchema->setFocus(Qt::OtherFocusReason); });

    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(ui_->tvXML), static_cast<QAbstractItemView*>(ui_->ListView1),
          static_cast<QAbstractItemView*>(ui_->ListView1Icons)}) {
        view->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(view, &QWidget::customContextMenuRequested, this, [this, view](const QPoint& place) {
            Q_EMIT contextMenuWanted(view->viewport()->mapToGlobal(place));
        });
    }
    for (const TextView* pane : {ui_->rtxtXML, ui_->rtxtXML2})
        connect(pane, &TextView::contextMenuWanted, this, &DocumentView::contextMenuWanted);
    ui_->rtxtXML->isInUse = [this] { return window_ && &window_->TextInUse() == &window_->rtxtXML; };
    ui_->rtxtXML2->isInUse = [this] { return window_ && &window_->TextInUse() == &window_->rtxtXML2; };
}

void DocumentView::Detach() {
    adapters_.reset();
    window_ = nullptr;
}

QWidget* DocumentView::Page() const {
    QWidget* page = ui_->pages->currentWidget();
    if (page == ui_->listview)
        return ui_->listview->currentWidget();
    if (page != ui_->textview)
        return page;
    return window_ && window_->brtxtXML2Focus && !ui_->rtxtXML2->isHidden() ? ui_->rtxtXML2 : ui_->rtxtXML;
}

void DocumentView::FocusFirst() {
    if (ui_->pages->currentWidget() == ui_->textview)
        Page()->setFocus(Qt::OtherFocusReason);
    else
        ui_->tvXML->setFocus(Qt::OtherFocusReason);
}

std::vector<QWidget*> DocumentView::Panes() const {
    std::vector<QWidget*> panes{ui_->tvXML, ui_->txtXPath, ui_->tbsXML};
    if (ui_->pages->currentWidget() == ui_->textview && !ui_->rtxtXML2->isHidden())
        panes.insert(panes.end(), {ui_->rtxtXML, ui_->rtxtXML2});
    else
        panes.push_back(Page());
    return panes;
}

} // namespace desktop

#include "moc_DocumentView.cpp"

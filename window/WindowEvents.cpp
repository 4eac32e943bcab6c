// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowEvents.h"
#include "core/edit/FileOnDisk.h"
#include "core/edit/FollowPath.h"
#include "core/edit/Save.h"
#include "core/edit/Tabs.h"
#include "core/edit/Transaction.h"
#include "core/model/FileNames.h"
#include "core/model/Frame.h"
#include "nodes/DragEvents.h"
#include "nodes/FinishEdits.h"
#include "nodes/TreeEvents.h"
#include "schema/CheckBeside.h"
#include "schema/DiagnosticWalk.h"
#include "schema/Diagnostics.h"
#include "textview/TextWays.h"
#include <QScopeGuard>
#include <Qt>
#include <algorithm>

namespace window {

namespace {

// What a document that was closed leaves behind: its name in the lists of names.
void FileName(DocumentWindow& window) {
    Frame& frame = window.app.frame();
    frame.cmbAddress().SetText(window.app.CurrentFileName);
    if (mXMLEdit::GetAddressType(window.Caption) > 0) {
        frame.UpdateFileMenu(window.Caption);
        frame.AddToList(window.Caption);
    }
}

} // namespace

void Form_Load(DocumentWindow& window) {
    window.way = &textview::WrittenAnew();
    // What is being typed in a label or a cell goes in before another view shows.
    window.tbsXML.BeforeClick.connect(
        [&window](bool& cancel) { cancel = cancel || !nodes::FinishEdits(window); });
    edit::LoadViews(window);
    for (controls::RichTextBox* pane : {&window.rtxtXML, &window.rtxtXML2}) {
        pane->Change.connect([&window] {
            if (window.bLoaded) // typed: an edit of nodes shows it at its end
                edit::ShowUnsaved(window);
        });
    }
    nodes::ConnectTree(window);
    nodes::ConnectDragging(window);
    schema::ConnectDiagnostics(window);
    schema::ConnectDiagnosticWalk(window);
    schema::ConnectCheckBeside(window);
    window.txtXPath.KeyUp.connect([&window](int key, int) {
        if (key == Qt::Key_Return || key == Qt::Key_Enter)
            edit::SelectTreeNodeByPath(window, window.txtXPath.Text());
    });
}

void Form_Activate(DocumentWindow& window) {
    edit::Run(window, "Form_Activate", [&] {
        SetVSplitPosition(window, window.msngVSplit);
        // A window that comes back is as it was left, with its current node (quirk 47).
        if (!window.tvXML.SelectedItem())
            edit::ExpandRoot(window);
        if (window.tvXML.Nodes.Count() > 0) {
            window.app.CurrentFileName = window.tvXML.Nodes(1).Text();
            window.SetCaption(window.app.CurrentFileName);
        }
        const bool local = mXMLEdit::IsLocalPath(window.Caption);
        window.app.frame().cmbAddress().SetText(local ? window.Caption : QString());
    });
}

bool Form_QueryUnload(DocumentWindow& window) {
    window.bUnloading = true;
    // The window may stay, and be closed later.
    auto over = qScopeGuard([&window] {
        window.bUnloading = window.bCancelSave = false;
        window.app.frame().RefreshMenu();
    });
    if (window.app.frame().FormCount() <= 1)
        window.app.frame().DisableMenu();
    if (!nodes::FinishEdits(window))
        return false;
    edit::SaveXMLFile(window, false, false);
    return !window.bCancelSave;
}

void Form_Unload(DocumentWindow& window) {
    window.bUnloading = true;
    if (window.app.frame().FormCount() <= 1)
        window.app.frame().DisableMenu();
    FileName(window);
    edit::UnloadViews(window);
}

void SetVSplitPosition(DocumentWindow& window, double position) {
    window.msngVSplit = std::max(position, 0.0);
}

} // namespace window

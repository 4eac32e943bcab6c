// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <memory>

namespace nodes {
class frmEditNodes;
}
class frmOptions;
namespace textview {
class frmFind;
}

namespace shell {

/// The frame's dialogs. Those that stand beside the documents are made when they are asked for first.
class Dialogs {
public:
    explicit Dialogs(Application& app);
    ~Dialogs();
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;

    void ShowOptions(); ///< back when it is done with
    void ShowFind();
    void FindNext(bool up); ///< see Frame::FindNext
    /// On the nodes of a window; not shown where its document can't be edited node by node, which is told.
    void ShowEditNodes(DocumentWindow& window);
    /// Writes what was typed into the one-by-one editor about a node of a window. False when it was refused:
    /// the user has been told, and it stays typed.
    bool NodeInHandIsWritten(const DocumentWindow& window);

    controls::Event<frmOptions&> optionsShown;
    controls::Event<textview::frmFind&> findShown;
    controls::Event<nodes::frmEditNodes&> editNodesShown;

private:
    textview::frmFind& Find();

    Application& app_;
    std::unique_ptr<textview::frmFind> find_;
    std::unique_ptr<nodes::frmEditNodes> editNodes_;
};

} // namespace shell

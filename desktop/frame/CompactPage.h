// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include "desktop/nodes/ListAdapter.h"
#include "desktop/nodes/ResultCells.h"
#include "desktop/nodes/TreeAdapter.h"
#include "desktop/text/TextAdapter.h"
#include <QObject>
#include <vector>

namespace Ui {
class frmXMLEdit;
}

namespace desktop {

/// The page of the compact view: the instance, what its selected node holds, and the declaration behind it,
/// with splitters between the three.
class CompactPage : public QObject {
public:
    CompactPage(DocumentWindow& window, const Ui::frmXMLEdit& ui);

    /// The parts of the page that F6 walks through, in order; the first one takes the focus.
    static std::vector<QWidget*> Panes(const Ui::frmXMLEdit& ui);

private:
    void ConnectSplitters(DocumentWindow& window, const Ui::frmXMLEdit& ui);

    TreeAdapter tree_;
    ListAdapter list_;
    ResultCells cells_;
    TextAdapter segment_;
};

} // namespace desktop

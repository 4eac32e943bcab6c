// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/FinishEdits.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"

namespace nodes {

void FinishEdits(DocumentWindow& window) {
    window.tvXML.FinishLabelEdit();
    window.ListView1.FinishLabelEdit();
    edit::FinishCells(window);
}

bool FinishAllEdits(DocumentWindow& window) {
    FinishEdits(window);
    return !window.bond.bTextChanged() ||
           edit::Run(window, "FinishAllEdits", [&] { return window.way->read(window); });
}

} // namespace nodes

// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/FinishEdits.h"
#include "core/edit/TextWay.h"
#include "core/edit/Transaction.h"
#include "core/edit/View.h"

namespace nodes {

bool FinishEdits(DocumentWindow& window) {
    window.tvXML.FinishLabelEdit();
    window.ListView1.FinishLabelEdit();
    const bool cells = edit::FinishCells(window);
    return cells && !window.tvXML.LabelKept() && !window.ListView1.LabelKept();
}

bool FinishAllEdits(DocumentWindow& window) {
    return FinishEdits(window) && (!window.bond.bTextChanged() || edit::Run(window, "FinishAllEdits", [&] {
               return window.way->read(window);
           }));
}

} // namespace nodes

// SPDX-License-Identifier: GPL-3.0-or-later
#include "nodes/FinishEdits.h"
#include "core/sync/TreeText.h"
#include "nodes/ListEditor.h"

void FinishEdits(DocumentWindow& window) {
    window.tvXML.FinishLabelEdit();
    window.ListView1.FinishLabelEdit();
    txtListView_LostFocus(window);
}

bool FinishAllEdits(DocumentWindow& window) {
    FinishEdits(window);
    return ReadEditedText(window);
}

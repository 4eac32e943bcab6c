// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

// The names of rows, which are edited as labels: those of elements and attributes.
namespace nodes {

void EditListViewItemName(DocumentWindow& window); ///< starts the label edit of the current row
/// Texts, comments, instructions and CDATA sections have no name to edit.
void ListView1_BeforeLabelEdit(DocumentWindow& window, bool& cancel);
/// While the user types: what the end of the edit would complain about.
void ListView1_LabelTyped(DocumentWindow& window, const QString& text);
/// A wrong name, and that of an attribute that is there already, is refused and stays in its editor; the user
/// has been told.
void ListView1_AfterLabelEdit(DocumentWindow& window, int row, bool& cancel, QString& newString);
void ListView1_LabelEdited(DocumentWindow& window);
/// What was to get a name first goes again.
void ListView1_LabelGivenUp(DocumentWindow& window, int row);

} // namespace nodes

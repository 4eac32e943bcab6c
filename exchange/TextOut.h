// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/edit/Waiting.h"
#include "core/edit/WriteStream.h"
#include "core/model/DocumentWindow.h"
#include <QString>

// A document as delimited text: what the table view shows of it, level by level.
namespace exchange {

struct TextOutOptions {
    QString i_sDelimiter;
    bool i_bIsSelectedNode = false;   ///< begin at the selected node, else at the document's first one
    bool i_bIsAttr = false;           ///< the cells of the tables
    bool i_bIncludeNameFirst = false; ///< a table begins with the names of its columns
    int i_iDepthType = 0;             ///< 1: so many levels, 0: all of them
    int i_iDepth = 0;                 ///< levels
    /// Values as the document means them, in quotes where they hold a delimiter, a quote or a line end.
    bool plain = false;
};

/// Hands the text on part by part, whole rows each. The window shows its table view then, with the node
/// selected that the text begins with. `step` is told of rows. False where it or the sink gave it up.
bool GetTreeNodeResText(DocumentWindow& window, const TextOutOptions& options, const edit::TextSink& sink,
                        const edit::WaitStep& step);

} // namespace exchange

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QHash>
#include <QString>
#include <cstdint>
#include <optional>

// The compact view: the instance that a schema describes, through which the schema is edited.
namespace schema {

/// What is being added and has no name yet: it stands in the view alone.
struct NewInstanceNode {
    enum Kind { Nothing, Node, Row, Attribute } kind = Nothing;
    QString key;   ///< of the node in tvRes, or of the row in lvRes
    QString under; ///< key of the node in tvRes that it is added to; empty: the instance gets its root
};

/// What a schema window keeps for the view.
struct CompactState {
    controls::TreeView tvRes;      ///< the instance
    controls::ListView lvRes;      ///< what its selected node holds
    controls::TextBox txtResLv;    ///< edits a cell of it; its Tag tells the column: "1" or "2"
    controls::RichTextBox rtxtSeg; ///< the declaration behind what is selected, to be read only
    controls::Pane pctCompactView;
    double msngCvV = 4000; ///< width of tvRes, in twips
    double msngCvH = 3000; ///< height of lvRes

    /// What the menus are for: 1 something is selected in tvRes, 2 in lvRes; 0: nothing.
    int miCVPopupContext = 0;
    bool listInUse = false;    ///< lvRes has the user's attention, and not tvRes
    bool segmentInUse = false; ///< rtxtSeg has the keys

    std::optional<std::uint64_t>
        builtRevision;                  ///< of tvXML, as the instance shows it; nothing: build it anew
    QHash<QString, QString> references; ///< see TreeToCompactTree
    QString followedKey;                ///< of the node of tvXML that the two have agreed on last
    QString wantedKey; ///< of the declaration whose element is to be selected when the instance is built
    QString wantedRow; ///< name of the attribute whose row is to be the current one then

    NewInstanceNode adding;
    QString namedKey, newName; ///< of the label that was accepted, to be written
    QString editedKey;         ///< of the row in whose cell the editor is open; empty: it isn't
    bool refused = false;      ///< with what was refused last
};

CompactState& CompactOf(DocumentWindow& window);

/// The name under which the routines of the view report.
inline constexpr char kCompactRoutine[] = "CompactView";

/// The instance is to be built anew at the end of the running edit, whether nodes have changed or not: what
/// stands in the view alone goes.
void BuildInstanceAnew(DocumentWindow& window);

void SetCvSVSplitPosition(DocumentWindow& window, double position); ///< twips, held at 0 or more
void SetCvSHSplitPosition(DocumentWindow& window, double position);

} // namespace schema

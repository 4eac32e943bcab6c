// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/DocumentWindow.h"
#include <QString>

namespace schema {

/// What a schema window keeps.
struct SchemaState {
    QString msPrefix; ///< of the schema's element names, without colon; may be empty
    /// The annotation attributes of the extension are offered as long as its prefix is declared
    /// (OffersMSSQL).
    bool mbEnabledMsSQL = false;
    bool mbEnabledOracle = false;
    /// Disabling has taken the declaration away: where undo brings it back, it brings back the offer.
    bool bMsSQLTakenAway = false, bOracleTakenAway = false;
};

SchemaState& SchemaOf(DocumentWindow& window);

/// A name of the schema language as this document writes it: behind the prefix, if it has one.
QString Prefixed(DocumentWindow& window, const QString& name);

/// The first child of the tree's root node whose local name is "schema"; nothing without one.
controls::TreeNode GetSchemaNode(const controls::TreeView& tree);

/// The local part of a name.
QString LocalName(const QString& name);

} // namespace schema

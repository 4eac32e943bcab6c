// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowKinds.h"
#include "core/model/DomToTree.h"
#include "integration/BrowserView.h"
#include "nodes/ListView.h"
#include "schema/CheckBeside.h"
#include "schema/CheckSchema.h"
#include "schema/CompactView.h"
#include "schema/Diagnostics.h"
#include "schema/SchemaCommandTable.h"
#include "schema/SchemaTree.h"
#include "schema/SchemaView.h"
#include "schema/ValueLists.h"
#include "schema/Vocabulary.h"
#include "table/TableView.h"
#include "textview/TextView.h"

namespace window {

namespace {

void NewTree(DocumentWindow& window, bool withDefaults) {
    if (!withDefaults)
        schema::ForgetDiagnostics(window);
    m_tvXML::AddTreeRoot(window.app, window.tvXML, withDefaults);
}
void FillTree(DocumentWindow& window, const xml::ParsedDocument& document) {
    schema::KeepDiagnosedNodes(window);
    m_tvXML::FillTree(window.app, window.tvXML, document);
}

} // namespace

const WindowKind& XMLKind() {
    static const WindowKind kind{.Name = QStringLiteral("frmXMLEdit"),
                                 .extension = QStringLiteral(".xml"),
                                 .schema = false,
                                 .renamesNodes = true,
                                 .views = {&nodes::ListView(), &textview::TextView(), &table::TableView(),
                                           &integration::BrowserView(), &schema::SchemaView()},
                                 .newTree = NewTree,
                                 .fillTree = FillTree,
                                 .check = schema::CheckDocument};
    return kind;
}

const WindowKind& SchemaKind() {
    static const WindowKind kind{.Name = QStringLiteral("frmSXMLEdit"),
                                 .extension = QStringLiteral(".xsd"),
                                 .schema = true,
                                 .renamesNodes = false,
                                 .views = {&nodes::ListView(), &schema::CompactView(), &textview::TextView(),
                                           &table::TableView(), &integration::BrowserView()},
                                 .newTree = schema::AddTreeRootS,
                                 .fillTree = schema::SXMLToTree,
                                 .textRead = schema::CheckAfterReading,
                                 .textLeft = schema::TellAfterLeaving,
                                 .attributesOffered = schema::AttributesOffered,
                                 .valuesOffered = schema::ValuesOffered,
                                 .namesOffered = schema::NamesOffered,
                                 .describeTarget = schema::DescribeTarget,
                                 .check = schema::CheckDocument};
    return kind;
}

} // namespace window

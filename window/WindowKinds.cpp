// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/WindowKinds.h"
#include "integration/BrowserView.h"
#include "nodes/ListView.h"
#include "schema/SchemaView.h"
#include "table/TableView.h"
#include "textview/TextView.h"

namespace window {

const WindowKind& XMLKind() {
    static const WindowKind kind{.Name = QStringLiteral("frmXMLEdit"),
                                 .extension = QStringLiteral(".xml"),
                                 .schema = false,
                                 .renamesNodes = true,
                                 .views = {&nodes::ListView(), &textview::TextView(), &table::TableView(),
                                           &integration::BrowserView(), &schema::SchemaView()}};
    return kind;
}

const WindowKind& SchemaKind() {
    static const WindowKind kind{.Name = QStringLiteral("frmSXMLEdit"),
                                 .extension = QStringLiteral(".xsd"),
                                 .schema = true,
                                 .renamesNodes = false,
                                 .views = {&nodes::ListView(), &schema::CompactView(), &textview::TextView(),
                                           &table::TableView(), &integration::BrowserView()}};
    return kind;
}

} // namespace window

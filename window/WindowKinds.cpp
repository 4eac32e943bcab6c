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
                                 .tabs = {{QLatin1String(edit::kListTab), QStringLiteral("List View")},
                                          {QLatin1String(edit::kTextTab), QStringLiteral("Text View")},
                                          {QLatin1String(edit::kTableTab), QStringLiteral("Table View")},
                                          {QLatin1String(edit::kBrowserTab), QStringLiteral("Browser View")},
                                          {QLatin1String(edit::kSchemaTab), QStringLiteral("Schema View")}},
                                 .views = {&nodes::ListView(), &textview::TextView(), &table::TableView(),
                                           &integration::BrowserView(), &schema::SchemaView()}};
    return kind;
}

const WindowKind& SchemaKind() {
    static const WindowKind kind{.Name = QStringLiteral("frmSXMLEdit"),
                                 .extension = QStringLiteral(".xsd"),
                                 .schema = true,
                                 .renamesNodes = false,
                                 .tabs = {{QLatin1String(edit::kListTab), QStringLiteral("List View")},
                                          {QLatin1String(edit::kCompactTab), QStringLiteral("Compact View")},
                                          {QLatin1String(edit::kTextTab), QStringLiteral("Text View")},
                                          {QLatin1String(edit::kTableTab), QStringLiteral("Table View")},
                                          {QLatin1String(edit::kBrowserTab), QStringLiteral("Browser View")}},
                                 .views = {&nodes::ListView(), &schema::CompactView(), &textview::TextView(),
                                           &table::TableView(), &integration::BrowserView()}};
    return kind;
}

} // namespace window

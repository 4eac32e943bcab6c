// SPDX-License-Identifier: GPL-3.0-or-later
#include "schema/window/frmSXMLEdit.h"
#include "core/commands/WindowEvents.h"

const WindowKind& frmSXMLEdit::Kind() {
    static const WindowKind kind{QStringLiteral("frmSXMLEdit"),
                                 QStringLiteral(".xsd"),
                                 true,
                                 false,
                                 {{QStringLiteral("listview"), QStringLiteral("List View")},
                                  {QStringLiteral("compactview"), QStringLiteral("Compact View")},
                                  {QStringLiteral("textview"), QStringLiteral("Text View")},
                                  {QStringLiteral("tableview"), QStringLiteral("Table View")},
                                  {QStringLiteral("browserview"), QStringLiteral("Browser View")}}};
    return kind;
}

frmSXMLEdit::frmSXMLEdit(Application& app) : window(app, Kind()) {
    Form_Load(window);
}

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "schema/SampleDocument.h"
#include "tests/nodes/ListDesk.h"

namespace test {

/// Schemas and their instances.
struct SchemaDesk : ListDesk {
    /// With another one schemas look the same here, and aren't checked: that takes long for odd ones.
    QByteArray space = "http://www.w3.org/2001/XMLSchema";
    /// Opens a schema with the prefix "xs" by what stands in its schema element.
    DocumentWindow& OpenSchema(const QByteArray& inside, const QByteArray& attributes = {}) {
        t.prompts.AllowAnyBox(); // many a schema here is no good one
        Open("<xs:schema xmlns:xs=\"" + space + "\"" + attributes + ">" + inside + "</xs:schema>",
             QStringLiteral("s%1.xsd").arg(++count_));
        w->tbsXML.Select(QStringLiteral("listview")); // a fault brings up the text
        t.prompts.boxes.clear();
        return *w;
    }
    /// The instance of the schema in front, without the location of the schema.
    std::string Instance() {
        controls::TreeView tree;
        tree.ImageList = w->tvXML.ImageList;
        schema::TreeToCompactTree(*w, tree);
        QString text =
            schema::InstanceText(t.app(), tree.Nodes.Count() > 0 ? tree.Nodes(1) : controls::TreeNode());
        const qsizetype at = text.indexOf(QStringLiteral(" xmlns:xsi"));
        if (at >= 0)
            text.remove(at, text.indexOf(u'>', at) - at);
        return Plain(text.replace(QStringLiteral(" >"), QStringLiteral(">")));
    }
    std::string InstanceOf(const QByteArray& inside) {
        OpenSchema(inside);
        return Instance();
    }

private:
    int count_ = 0;
};

} // namespace test

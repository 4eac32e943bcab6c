// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/DatabaseSchema.h"
#include "core/model/Application.h"
#include "exchange/DataTypes.h"
#include "exchange/FieldNames.h"
#include "exchange/SchemaKeys.h"

namespace exchange {

namespace {

using services::DatabaseColumn;

const QString kEnd = QStringLiteral("\r\n");

/// Drivers tell a size for texts of any length, too: as these say, their own limit for them.
bool HasLength(const DatabaseColumn& column) {
    constexpr qint64 kEndless = 1 << 30;
    const int type = DataTypeOf(column);
    return column.size > 0 && column.size < kEndless && type != adLongVarChar && type != adLongVarWChar;
}

QString StringColumn(const DatabaseColumn& column, const QString& kind, const QString& indent, bool repair) {
    const auto line = [&](int depth, const QString& text) {
        return indent + QString(depth, u'\t') + text + kEnd;
    };
    if (repair && !HasLength(column))
        return line(0, QStringLiteral("<xsd:%1 name=\"%2\" type=\"xsd:string\"/>").arg(kind, column.name));
    // The blank stands for the positive sign; readers of these schemas expect it (quirk 109).
    const QString length = (repair ? QString() : QStringLiteral(" ")) + QString::number(column.size);
    const QString most = line(3, QStringLiteral("<xsd:maxLength value=\"") + length + QStringLiteral("\"/>"));
    return line(0, QStringLiteral("<xsd:%1 name=\"").arg(kind) + column.name + QStringLiteral("\">")) +
           line(1, QStringLiteral("<xsd:simpleType>")) +
           line(2, QStringLiteral("<xsd:restriction base=\"xsd:string\">")) +
           (column.size > 0 ? most : QString()) + // quirk 137
           line(2, QStringLiteral("</xsd:restriction>")) + line(1, QStringLiteral("</xsd:simpleType>")) +
           line(0, QStringLiteral("</xsd:%1>").arg(kind));
}

QString GetTableColumnsSchema(Application& app, const TableShape& shape, const QString& indent,
                              const SchemaOptions& options) {
    QString columns;
    for (const DatabaseColumn& column : shape.columns)
        columns += GetADOXColSchemaString(app, column, indent, options);
    return options.attributes ? columns
                              : indent + QStringLiteral("<xsd:sequence>\r\n") + columns + indent +
                                    QStringLiteral("</xsd:sequence>\r\n");
}

QString TableSchema(Application& app, const TableShape& shape, const SchemaOptions& options) {
    return QStringLiteral("\t<xsd:element name=\"") + shape.table.name +
           QStringLiteral("\">\r\n\t\t<xsd:complexType>\r\n") +
           GetTableColumnsSchema(app, shape, QString(3, u'\t'), options) +
           QStringLiteral("\t\t</xsd:complexType>\r\n\t</xsd:element>\r\n");
}

/// What a check of the schema will find; empty where all is well.
QString ComplaintOf(Application& app, const std::vector<TableShape>& shapes, const QString& schema) {
    std::vector<QString> names;
    for (const TableShape& shape : shapes) {
        names.push_back(shape.table.name);
        for (const DatabaseColumn& column : shape.columns)
            names.push_back(column.name);
    }
    QStringList complaints;
    if (const QString bad = FirstBadName(app, names); !bad.isNull())
        complaints << QStringLiteral("The name \"%1\" is no name in XML.").arg(bad);
    if (schema.contains(QStringLiteral("<xsd:maxLength value=\" ")))
        complaints << QStringLiteral("The lengths of texts (maxLength) begin with a blank.");
    if (!complaints.isEmpty())
        complaints << QStringLiteral("A check will refuse the schema; the box for valid names mends that.");
    return complaints.join(u' ');
}

} // namespace

QString GetADOXColSchemaString(Application& app, const DatabaseColumn& column, const QString& indent,
                               const SchemaOptions& options) {
    const QString kind = options.attributes ? QStringLiteral("attribute") : QStringLiteral("element");
    const TypeForm form = FormOfType(DataTypeOf(column), options.repair);
    switch (form.kind) {
    case TypeForm::Nothing:
        return {};
    case TypeForm::Unknown:
        ErrorReportBox(app, text::Fault(text::kFaultBadCall, column.typeName),
                       QStringLiteral("m_DBBox.sRes Unknown Type"));
        return {};
    case TypeForm::String:
        return StringColumn(column, kind, indent, options.repair);
    case TypeForm::Named:
        break;
    }
    return indent + QStringLiteral("<xsd:") + kind + QStringLiteral(" name=\"") + column.name +
           QStringLiteral("\" type=\"") + QLatin1String(form.name) + QStringLiteral("\"/>\r\n");
}

MadeSchema SchemaOf(Application& app, services::Database& database, const SchemaOptions& options,
                    const edit::WaitStep& step) {
    MadeSchema made;
    std::vector<TableShape> shapes;
    made.result = ReadShapes(app, database, options.repair, step, shapes);
    QString root;
    if (options.repair)
        root = MakeNamesValid(app, shapes);
    made.text = QStringLiteral("<?xml version=\"1.0\" encoding=\"") + app.options.Encoding +
                QStringLiteral("\"?>\r\n<xsd:schema xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\r\n");
    for (const TableShape& shape : shapes)
        made.text += TableSchema(app, shape, options);
    if (options.repair)
        made.text += RootSchema(root, shapes, options.attributes);
    made.text += QStringLiteral("</xsd:schema>");
    if (!options.repair)
        made.complaint = ComplaintOf(app, shapes, made.text);
    return made;
}

} // namespace exchange

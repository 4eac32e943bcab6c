// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace schema {

/// Elements of the schema language, each in a line, indented below the schema element.
class SchemaLines {
public:
    void Put(const QString& element) { Add(u'<', element, QStringLiteral("/>")); } ///< one without content
    void Open(const QString& element) {
        Add(u'<', element, QStringLiteral(">"));
        ++level_;
    }
    void Close(const QString& name) {
        --level_;
        Add(u'<', name, QStringLiteral(">"), QStringLiteral("/"));
    }
    const QString& Text() const { return text_; }

private:
    void Add(QChar open, const QString& element, const QString& end, const QString& slash = {}) {
        text_ += QString(level_, u'\t') + open + slash + QStringLiteral("xs:") + element + end +
                 QStringLiteral("\r\n");
    }
    QString text_;
    int level_ = 1;
};

} // namespace schema

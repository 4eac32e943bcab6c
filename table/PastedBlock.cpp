// SPDX-License-Identifier: GPL-3.0-or-later
#include "table/PastedBlock.h"
#include "core/model/Attributes.h"
#include "core/model/Escaping.h"
#include "core/model/NodeContent.h"
#include "platform/xml/ParsedDocument.h"
#include "table/ElementTable.h"
#include <algorithm>

namespace table {

namespace {

// A whole document may have been copied, and its declaration can't stand in an element.
QStringView WithoutDeclaration(QStringView text) {
    text = text.trimmed();
    if (text.startsWith(QChar::ByteOrderMark))
        text = text.sliced(1).trimmed();
    const bool declared = text.startsWith(u"<?xml") && text.size() > 5 && text[5].isSpace();
    const qsizetype end = declared ? text.indexOf(u"?>") : -1;
    return end < 0 ? text : text.sliced(end + 2);
}

bool Load(xml::ParsedDocument& document, const QString& text) {
    return document.loadXML(QStringLiteral("<temp>") + WithoutDeclaration(text).toString() +
                            QStringLiteral("</temp>"));
}

// An element without a text says nothing of one.
PastedBlock::Row RowOf(xml::Node element) {
    const m_tvXML::Attributes attributes(m_tvXML::GenerateAttributeString(element));
    PastedBlock::Row row{attributes.names(), {}};
    for (qsizetype i = 0; i < attributes.count(); ++i)
        row.values << attributes.value(i);
    if (const QString content = m_tvXML::GetXmlNodeAllNodeText(element); !content.isEmpty()) {
        row.names << kNodeText;
        row.values << mXMLEdit::convertStringToXML(content);
    }
    return row;
}

/// Elements side by side; nothing for a text with anything else in it.
std::vector<PastedBlock::Row> RowsOf(xml::Node temp) {
    std::vector<PastedBlock::Row> rows;
    for (xml::Node node = temp.firstChild(); node; node = node.nextSibling()) {
        if (node.nodeType() == xml::TEXT || node.nodeType() == xml::CDATA_SECTION)
            return {};
        if (node.nodeType() == xml::ELEMENT)
            rows.push_back(RowOf(node));
    }
    return rows;
}

/// Lines with tabs between their values, as other programs write tables: a value with a line end, a tab or a
/// quote in it stands in quotes, its own ones doubled.
class LineReader {
public:
    explicit LineReader(QStringView lines) : lines_(lines) {}

    /// Nothing for too much.
    std::vector<PastedBlock::Row> read() {
        std::vector<PastedBlock::Row> rows;
        std::size_t cells = 0;
        while (at_ < lines_.size()) {
            PastedBlock::Row& row = rows.emplace_back();
            while (true) {
                if (++cells > kMostPastedCells)
                    return {};
                row.values << value();
                if (here() != u'\t')
                    break;
                ++at_;
            }
            if (here() == u'\r')
                ++at_;
            if (here() == u'\n')
                ++at_;
        }
        return rows;
    }

private:
    QChar here() const { return at_ < lines_.size() ? lines_[at_] : QChar(); }
    bool endsAt(qsizetype at) const {
        return at >= lines_.size() || QStringView(u"\t\r\n").contains(lines_[at]);
    }

    QString value() {
        if (here() == u'"') {
            if (const qsizetype end = closingQuote(); end > 0) {
                const QString quoted = lines_.sliced(at_ + 1, end - at_ - 1).toString();
                at_ = end + 1;
                return QString(quoted).replace(QStringLiteral("\"\""), QStringLiteral("\""));
            }
        }
        const qsizetype start = at_;
        while (!endsAt(at_))
            ++at_;
        return lines_.sliced(start, at_ - start).toString();
    }
    /// The quote that ends a value; 0 where the text isn't written so.
    qsizetype closingQuote() const {
        for (qsizetype at = lines_.indexOf(u'"', at_ + 1); at >= 0; at = lines_.indexOf(u'"', at + 2)) {
            if (at + 1 >= lines_.size() || lines_[at + 1] != u'"')
                return endsAt(at + 1) ? at : 0;
        }
        return 0;
    }

    QStringView lines_;
    qsizetype at_ = 0;
};

bool IsBetweenValues(QChar unit) {
    return unit == u'\t' || unit == u'\r' || unit == u'\n';
}

bool LooksLikeXml(const QString& text) {
    return WithoutDeclaration(text).trimmed().startsWith(u'<');
}

} // namespace

bool IsXml(const QString& text) {
    xml::ParsedDocument document;
    return LooksLikeXml(text) && Load(document, text) && document.documentElement().firstChild();
}

PastedBlock BlockOf(const QString& text) {
    if (LooksLikeXml(text)) {
        xml::ParsedDocument document;
        const bool read = Load(document, text);
        if (read) {
            if (std::vector<PastedBlock::Row> rows = RowsOf(document.documentElement()); !rows.empty())
                return {.rows = std::move(rows), .named = true};
        }
        if (read || !std::any_of(text.begin(), text.end(), IsBetweenValues))
            return {.rows = {{{}, {text}}}};
    }
    return {.rows = LineReader(text).read()};
}

} // namespace table

// SPDX-License-Identifier: GPL-3.0-or-later
// Any text at all must end in a document or in an error with a place inside the text.
#include "platform/xml/ParsedDocument.h"
#include <cstdlib>
#include <cstring>

namespace {

void Require(bool condition) {
    if (!condition)
        std::abort();
}

/// Bytes behind a U+0001 are 16-bit units as they are, so that halves of pairs get in too; all others are
/// UTF-8.
QString TextFrom(const std::uint8_t* data, std::size_t size) {
    if (size == 0 || data[0] != 1)
        return QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString text(static_cast<qsizetype>((size - 1) / 2), Qt::Uninitialized);
    std::memcpy(text.data(), data + 1, static_cast<std::size_t>(text.size()) * 2);
    return text;
}

std::size_t CountBelow(const xml::Node& parent) {
    std::size_t count = 0;
    for (xml::Node node = parent.firstChild(); node; node = node.nextSibling()) {
        Require(node.parentNode() == parent);
        for (int i = 0; i < node.attributeCount(); ++i)
            Require(node.attributes()[i].nameId < node.ownerDocument()->nameCount());
        Require(node.nodeValue().size() == static_cast<qsizetype>(node.valueView().length));
        count += 1 + CountBelow(node);
    }
    return count;
}

void CheckError(const xml::ParseError& error, const QString& text) {
    Require(error.errorCode != 0);
    Require(error.filepos >= 0 && error.filepos <= text.size() && (error.filepos > 0 || text.isEmpty()));
    Require(error.linepos <= error.filepos && error.line <= error.filepos);
    Require(error.srcText.size() <= 400 && error.reason.endsWith(QStringLiteral(".\r\n")));
}

/// The rules for namespaces only refuse more, at a place in the text.
void CheckPrefixes(const QString& text, bool wellFormed) {
    xml::ParsedDocument document;
    if (document.loadXML(text, {}, {}, xml::Prefixes::Declared))
        Require(wellFormed);
    else
        CheckError(document.parseError(), text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = TextFrom(data, size);
    xml::ParsedDocument document;
    const bool wellFormed = document.loadXML(text);
    CheckPrefixes(text, wellFormed);
    if (!wellFormed) {
        Require(!document.losses().any());
        CheckError(document.parseError(), text);
        return 0;
    }
    Require(document.documentElement().nodeType() == xml::ELEMENT);
    Require(CountBelow(document.document()) == document.nodeCount());
    // The text is also a path, now and then a good one.
    document.selectNodes(document.documentElement().firstChild().nodeValue());
    return 0;
}

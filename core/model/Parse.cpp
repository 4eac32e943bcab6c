// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/model/Parse.h"
#include "core/model/Application.h"
#include <utility>

namespace mXMLEdit {

std::optional<xml::ParseError> Parsed::error() const {
    return document && !good() ? std::optional(document->parseError()) : std::nullopt;
}

Parsed Parse(Application& app, const FetchedText& text, xml::Prefixes prefixes) {
    if (text.text.isEmpty())
        return {};
    Parsed parsed{std::exchange(text.parsed, nullptr)};
    if (!parsed.document) {
        ++app.work.parses;
        parsed.document = std::make_shared<xml::ParsedDocument>();
        parsed.document->loadXML(text.text, {}, {}, prefixes);
    }
    return parsed;
}

QString ErrorLines(const xml::ParseError& error) {
    const QStringList lines{QStringLiteral("ErrorCode:") + QString::number(error.errorCode),
                            QStringLiteral("FilePos:") + QString::number(error.filepos),
                            QStringLiteral("Line:") + QString::number(error.line),
                            QStringLiteral("LinePos:") + QString::number(error.linepos),
                            QStringLiteral("Reason:") + error.reason,
                            QStringLiteral("SrcText:") + error.srcText,
                            QStringLiteral("Url:") + error.url};
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace mXMLEdit

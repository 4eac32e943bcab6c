// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/model/FetchedText.h"
#include "platform/xml/ParsedDocument.h"
#include <QString>
#include <memory>
#include <optional>

struct Application;

// Text to parsed document. Nothing here tells the user anything: see core/edit/Report.h.
namespace mXMLEdit {

/// A text taken apart.
struct Parsed {
    std::shared_ptr<xml::ParsedDocument> document; ///< null for an empty text, else set whatever came of it
    bool good() const { return document && document->parseError().errorCode == 0; }
    /// Why it isn't good; nothing for a good text and for an empty one.
    std::optional<xml::ParseError> error() const;
    xml::Node root() const { return good() ? document->documentElement() : xml::Node(); }
};

/// Parses. A text that was taken apart when it was fetched isn't parsed again. Prefixes have to be declared
/// in a document; those of a part of one may be declared elsewhere.
Parsed Parse(Application& app, const FetchedText& text, xml::Prefixes prefixes = xml::Prefixes::Declared);

/// The seven lines that tell of an error.
QString ErrorLines(const xml::ParseError& error);

} // namespace mXMLEdit

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/LongText.h"
#include "platform/text/StringPool.h"
#include "platform/xml/Losses.h"
#include <QString>
#include <QStringView>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace xml {

class ParsedDocument;

/// Which prefixes a text may use.
enum class Prefixes : std::uint8_t {
    Declared, ///< those that are declared in it, by the rules of Namespaces in XML 1.0: for documents
    Any       ///< all: for fragments whose prefixes are declared elsewhere (quirk 34)
};

/// What the parser disliked. Positions count 16-bit units of the very text that was given.
struct ParseError {
    int errorCode = 0; ///< 0: no error; else one stable number per kind of error
    int filepos = 0; ///< 1-based place of the offending character in the whole text (its last character at a
                     ///< premature end)
    int line = 0;    ///< 1-based; CR LF, CR and LF each end one line
    int linepos = 0; ///< 1-based place in the line
    QString reason;  ///< one readable sentence, ending in CR LF
    QString
        srcText; ///< the line with the error, without its line end; cut around the error when longer than 400
    QString url; ///< empty for a text that was handed over as such
};

// Node types as the W3C DOM numbers them.
enum NodeType : std::uint8_t {
    ELEMENT = 1,
    ATTRIBUTE = 2,
    TEXT = 3,
    CDATA_SECTION = 4,
    ENTITY_REFERENCE = 5,
    ENTITY = 6,
    PROCESSING_INSTRUCTION = 7,
    COMMENT = 8,
    DOCUMENT = 9,
    DOCUMENT_TYPE = 10,
    DOCUMENT_FRAGMENT = 11
};

/// One attribute of an element, in document order, namespace declarations among them.
struct Attribute {
    std::uint32_t nameId;        ///< see ParsedDocument::name
    text::StringPool::Ref value; ///< see ParsedDocument::view; unescaped
};

/// A handle on a node of a parsed document; may be "nothing". Good as long as the document lives.
class Node {
public:
    Node() = default;
    bool isNothing() const { return document_ == nullptr; }
    explicit operator bool() const { return document_ != nullptr; }
    bool operator==(const Node&) const = default;

    int nodeType() const;
    QString nodeTypeString() const; ///< "element", "text", "cdatasection", "processinginstruction",
                                    ///< "comment", "documenttype", "document"
    QString nodeName() const; ///< the name as written with its prefix, "#text", "#comment", "#cdata-section",
                              ///< "#document", the target, the document type's name
    QString nodeValue() const;    ///< text, comment, CDATA or instruction data; empty for the others
    std::uint32_t nameId() const; ///< number of nodeName in the document's names
    text::CompactView valueView() const;
    Node firstChild() const;
    Node nextSibling() const;
    Node parentNode() const;
    int attributeCount() const;
    const Attribute* attributes() const; ///< attributeCount entries
    const ParsedDocument* ownerDocument() const { return document_; }

private:
    friend class ParsedDocument;
    Node(const ParsedDocument* document, std::uint32_t id) : document_(document), id_(id) {}
    const ParsedDocument* document_ = nullptr;
    std::uint32_t id_ = 0;
};

/// A text taken apart. Strict XML 1.0 well-formedness; the encoding named in the declaration is ignored,
/// since a text is decoded already. White-space-only text is
/// dropped unless xml:space="preserve" is in scope. The XML declaration is a processing instruction "xml".
/// Internal entities are resolved, external ones and DTDs are never fetched: a reference to one is a parse
/// error, because its content could not be kept. Entity expansion and depth (5000 levels) are bounded: a text
/// beyond them is refused with a parse error. So is one with more than 100,000 different names, or with more
/// attributes side by side than can be compared in a few seconds.
class ParsedDocument {
public:
    ParsedDocument();
    ~ParsedDocument();
    ParsedDocument(const ParsedDocument&) = delete;
    ParsedDocument& operator=(const ParsedDocument&) = delete;

    /// Told how far a load is, in units of the text; false stops it.
    using Step = std::function<bool(qsizetype done, qsizetype total)>;

    /// Takes the text apart. `url` is only reported back in the parse error. `step` is called about every
    /// 250,000 units, and not for shorter texts. Prefixes::Declared also checks the text by the rules for
    /// namespaces.
    /// False on an ill-formed text: parseError() tells why and the document is empty. No exception leaves it
    /// but one that `step` throws, with the document empty as well.
    bool loadXML(const text::LongText& text, const QString& url = {}, const Step& step = {},
                 Prefixes prefixes = Prefixes::Any);
    bool loadXML(const QString& text, const QString& url = {}, const Step& step = {},
                 Prefixes prefixes = Prefixes::Any);
    const ParseError& parseError() const { return error_; }
    /// Whether `step` stopped the last load; it has a parse error then, too.
    bool wasStopped() const;

    Node document() const; ///< the document node; nothing before a successful load
    Node documentElement() const;
    std::size_t nodeCount() const; ///< nodes below the document node, attributes not counted

    Losses losses() const; ///< what writing the document anew would drop; nothing before a successful load

    const QString& name(std::uint32_t nameId) const;
    std::uint32_t nameCount() const;
    text::CompactView view(text::StringPool::Ref ref) const;

    /// The nodes an XPath 1.0 expression selects from the document node, in document order. A prefix in the
    /// path matches the same prefix as written in the document, and a name without a prefix matches a name
    /// without one, whatever namespace is declared. Attributes yield their element. A wrong expression, one
    /// that takes too long, or a lack of memory gives an empty list and fills `error` if given.
    std::vector<Node> selectNodes(const QString& xpath, QString* error = nullptr) const;
    Node selectSingleNode(const QString& xpath, QString* error = nullptr) const;

private:
    friend class Node;
    friend class Loader;
    struct Storage;
    std::unique_ptr<Storage> storage_;
    ParseError error_;
};

} // namespace xml

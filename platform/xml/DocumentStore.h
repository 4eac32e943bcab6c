// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/text/StringPool.h"
#include "platform/xml/ChunkedArray.h"
#include "platform/xml/ParsedDocument.h"
#include <QHashFunctions>
#include <QString>
#include <memory>
#include <optional>
#include <unordered_map>

namespace xml {

class XPathTree;

/// One node, 20 bytes. Nodes are numbered in document order, so the first child of a node, if it has any, is
/// the next number.
struct NodeRecord {
    std::uint32_t parent;
    std::uint32_t next;      ///< next sibling; 0: none (number 0 is the document node, which is no sibling)
    std::uint32_t type : 4;  ///< a NodeType
    std::uint32_t name : 28; ///< number of its name
    std::uint32_t value;     ///< element: index of its first attribute; others: the value's Ref in the pool
    std::uint32_t attributeCount;
};

/// What a parsed document is made of.
struct DocumentStore {
    // Names that every document has, in this order.
    static constexpr std::uint32_t kDocumentName = 0, kTextName = 1, kCommentName = 2, kCDataName = 3,
                                   kXmlSpaceName = 4;

    DocumentStore();
    ~DocumentStore();

    /// Number of a name; a new one if it was not met before. Throws std::bad_alloc when the numbers run out.
    std::uint32_t nameId(const QString& name);
    /// Number of a name that was met; nothing for any other.
    std::optional<std::uint32_t> findName(const QString& name) const;

    ChunkedArray<NodeRecord, 15> nodes;
    ChunkedArray<Attribute, 14> attributes;
    text::StringPool texts;
    std::vector<QString> names;
    std::uint32_t nodeCount = 1; ///< with the document node
    std::uint32_t rootId = 0;    ///< the root element
    Losses losses;

    std::unique_ptr<XPathTree> xpathTree; ///< made when a path is first asked for

private:
    // Not Qt's: that one ends the program when memory runs out.
    std::unordered_map<QString, std::uint32_t> nameIds_;
};

/// The private side of ParsedDocument's header.
struct ParsedDocument::Storage : DocumentStore {};

} // namespace xml

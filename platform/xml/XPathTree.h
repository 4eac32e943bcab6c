// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/xml/DocumentStore.h"
#include <QString>
#include <deque>
#include <libxml/tree.h>
#include <memory>
#include <vector>

namespace xml {

/// The parser library's own tree of a document, which its XPath engine works on. It takes many times the
/// memory of the document, so it is made only when a path is asked for. A name a:b is given the namespace
/// "prefix:a", whatever is declared, so that prefixes match as they are written.
class XPathTree {
public:
    /// nullptr when memory runs out.
    static std::unique_ptr<XPathTree> Make(const DocumentStore& store);
    ~XPathTree();
    XPathTree(const XPathTree&) = delete;
    XPathTree& operator=(const XPathTree&) = delete;

    xmlDoc* document() const { return document_.get(); }
    /// The tree's node with a number of the document; nullptr for the document type.
    xmlNode* node(std::uint32_t id) const { return nodes_[id]; }

private:
    struct Name {
        const xmlChar* local;
        xmlNs* space;
    };

    explicit XPathTree(const DocumentStore& store) : store_(store) {}

    bool build();
    bool addNode(std::uint32_t id, std::vector<xmlNode*>& path);
    xmlNode* makeNode(const NodeRecord& record);
    bool addAttributes(xmlNode* element, const NodeRecord& record);
    const Name& name(std::uint32_t nameId);
    xmlNs* spaceOf(const QByteArray& prefix);
    QByteArray valueOf(text::StringPool::Ref ref) const { return store_.texts.view(ref).toString().toUtf8(); }

    struct FreeDocument {
        void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
    };

    const DocumentStore& store_;
    std::deque<xmlNs> spaces_; ///< the tree points to them, so they must outlive it
    std::unique_ptr<xmlDoc, FreeDocument> document_;
    std::vector<Name> names_;
    std::vector<xmlNode*> nodes_; ///< by number
};

} // namespace xml

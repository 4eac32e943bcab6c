// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/XPathTree.h"
#include "platform/xml/LibXmlScope.h"
#include "platform/xml/PrefixSpace.h"
#include <exception>
#include <libxml/dict.h>
#include <libxml/xpath.h>

namespace xml {

namespace {

const xmlChar* Bytes(const QByteArray& text) {
    return reinterpret_cast<const xmlChar*>(text.constData());
}

/// Links a node behind its parent's last child. The library's own routine would join neighbouring texts.
void Append(xmlNode* parent, xmlNode* node) {
    node->parent = parent;
    node->prev = parent->last;
    if (parent->last)
        parent->last->next = node;
    else
        parent->children = node;
    parent->last = node;
}

} // namespace

XPathTree::~XPathTree() = default;

std::unique_ptr<XPathTree> XPathTree::Make(const DocumentStore& store) {
    const LibXmlScope scope;
    try {
        std::unique_ptr<XPathTree> tree(new XPathTree(store));
        return tree->build() ? std::move(tree) : nullptr;
    } catch (const std::exception&) {
        return nullptr;
    }
}

bool XPathTree::build() {
    document_.reset(xmlNewDoc(BAD_CAST "1.0"));
    if (!document_)
        return false;
    document_->dict = xmlDictCreate();
    if (!document_->dict)
        return false;
    names_.resize(store_.names.size(), Name{nullptr, nullptr});
    nodes_.resize(store_.nodeCount, nullptr);
    nodes_[0] = reinterpret_cast<xmlNode*>(document_.get());
    std::vector<xmlNode*> path = {nodes_[0]};
    for (std::uint32_t id = 1; id < store_.nodeCount; ++id) {
        if (!addNode(id, path))
            return false;
    }
    // Numbers the elements, so that the engine need not count when it sorts.
    xmlXPathOrderDocElems(document_.get());
    return true;
}

/// `path` are the ancestors of the node that was added last, with that node; nodes come in document order.
bool XPathTree::addNode(std::uint32_t id, std::vector<xmlNode*>& path) {
    const NodeRecord& record = store_.nodes[id];
    if (record.type == DOCUMENT_TYPE)
        return true; // XPath knows none
    const auto numberOf = [](const xmlNode* node) {
        return reinterpret_cast<std::uintptr_t>(node->_private);
    };
    while (path.size() > 1 && numberOf(path.back()) != record.parent)
        path.pop_back();
    xmlNode* node = makeNode(record);
    if (!node)
        return false;
    node->_private = reinterpret_cast<void*>(std::uintptr_t{id});
    nodes_[id] = node;
    Append(path.back(), node);
    if (record.type != ELEMENT)
        return true;
    path.push_back(node);
    return addAttributes(node, record);
}

xmlNode* XPathTree::makeNode(const NodeRecord& record) {
    xmlDoc* document = document_.get();
    if (record.type == ELEMENT) {
        const Name& full = name(record.name);
        // The name belongs to the document's dictionary, so no one writes to or frees it.
        return xmlNewDocNodeEatName(document, full.space, const_cast<xmlChar*>(full.local), nullptr);
    }
    const QByteArray value = valueOf(record.value);
    switch (record.type) {
    case TEXT:
        return xmlNewDocTextLen(document, Bytes(value), static_cast<int>(value.size()));
    case CDATA_SECTION:
        return xmlNewCDataBlock(document, Bytes(value), static_cast<int>(value.size()));
    case COMMENT:
        return xmlNewDocComment(document, Bytes(value));
    default:
        return xmlNewDocPI(document, Bytes(store_.names[record.name].toUtf8()), Bytes(value));
    }
}

bool XPathTree::addAttributes(xmlNode* element, const NodeRecord& record) {
    xmlAttr* last = nullptr;
    for (std::uint32_t i = 0; i < record.attributeCount; ++i) {
        const Attribute& attribute = store_.attributes[record.value + i];
        const Name& full = name(attribute.nameId);
        const QByteArray value = valueOf(attribute.value);
        // Made and linked here: the library would walk the list to its end for each, and without an element
        // it would free the dictionary's name when memory runs out.
        auto* made = static_cast<xmlAttr*>(xmlMalloc(sizeof(xmlAttr)));
        if (!made)
            return false;
        *made = {};
        made->type = XML_ATTRIBUTE_NODE;
        made->name = full.local;
        made->ns = full.space;
        made->doc = document_.get();
        made->parent = element;
        made->prev = last;
        (last ? last->next : element->properties) = made;
        last = made;
        xmlNode* text = xmlNewDocTextLen(document_.get(), Bytes(value), static_cast<int>(value.size()));
        if (!text)
            return false;
        Append(reinterpret_cast<xmlNode*>(made), text);
    }
    return true;
}

const XPathTree::Name& XPathTree::name(std::uint32_t nameId) {
    Name& full = names_[nameId];
    if (full.local)
        return full;
    const QByteArray written = store_.names[nameId].toUtf8();
    const qsizetype colon = written.indexOf(':');
    const bool prefixed = colon > 0 && colon + 1 < written.size();
    const QByteArray local = prefixed ? written.mid(colon + 1) : written;
    full.space = prefixed ? spaceOf(written.left(colon)) : nullptr;
    full.local = xmlDictLookup(document_->dict, Bytes(local), static_cast<int>(local.size()));
    if (!full.local)
        throw std::bad_alloc();
    return full;
}

xmlNs* XPathTree::spaceOf(const QByteArray& prefix) {
    const QByteArray uri = PrefixSpace(prefix);
    const xmlChar* href = xmlDictLookup(document_->dict, Bytes(uri), static_cast<int>(uri.size()));
    const xmlChar* word = xmlDictLookup(document_->dict, Bytes(prefix), static_cast<int>(prefix.size()));
    if (!href || !word)
        throw std::bad_alloc();
    for (xmlNs& space : spaces_) {
        if (space.href == href)
            return &space;
    }
    xmlNs space = {};
    space.type = XML_LOCAL_NAMESPACE;
    space.href = href;
    space.prefix = word;
    return &spaces_.emplace_back(space);
}

} // namespace xml

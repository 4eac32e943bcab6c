// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/DocumentStore.h"
#include "platform/xml/ParsedDocument.h"

namespace xml {

namespace {

QString TypeString(int type) {
    switch (type) {
    case ELEMENT:
        return QStringLiteral("element");
    case TEXT:
        return QStringLiteral("text");
    case CDATA_SECTION:
        return QStringLiteral("cdatasection");
    case PROCESSING_INSTRUCTION:
        return QStringLiteral("processinginstruction");
    case COMMENT:
        return QStringLiteral("comment");
    case DOCUMENT_TYPE:
        return QStringLiteral("documenttype");
    case DOCUMENT:
        return QStringLiteral("document");
    default:
        return {};
    }
}

} // namespace

int Node::nodeType() const {
    return isNothing() ? 0 : static_cast<int>(document_->storage_->nodes[id_].type);
}

QString Node::nodeTypeString() const {
    return TypeString(nodeType());
}

QString Node::nodeName() const {
    return isNothing() ? QString() : document_->name(nameId());
}

std::uint32_t Node::nameId() const {
    return isNothing() ? 0 : document_->storage_->nodes[id_].name;
}

QString Node::nodeValue() const {
    return valueView().toString();
}

text::CompactView Node::valueView() const {
    if (isNothing() || nodeType() == ELEMENT)
        return {};
    return document_->view(document_->storage_->nodes[id_].value);
}

Node Node::firstChild() const {
    if (isNothing())
        return {};
    const auto& store = *document_->storage_;
    const std::uint32_t candidate = id_ + 1;
    if (candidate >= store.nodeCount || store.nodes[candidate].parent != id_)
        return {};
    return Node(document_, candidate);
}

Node Node::nextSibling() const {
    const std::uint32_t next = isNothing() ? 0 : document_->storage_->nodes[id_].next;
    return next == 0 ? Node() : Node(document_, next);
}

Node Node::parentNode() const {
    return isNothing() || id_ == 0 ? Node() : Node(document_, document_->storage_->nodes[id_].parent);
}

int Node::attributeCount() const {
    return isNothing() ? 0 : static_cast<int>(document_->storage_->nodes[id_].attributeCount);
}

const Attribute* Node::attributes() const {
    if (attributeCount() == 0)
        return nullptr;
    const auto& store = *document_->storage_;
    return &store.attributes[store.nodes[id_].value];
}

} // namespace xml

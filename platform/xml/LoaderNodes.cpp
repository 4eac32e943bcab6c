// SPDX-License-Identifier: GPL-3.0-or-later
// What all events use: nodes and their names, and complaints.
#include "platform/xml/Loader.h"
#include <new>

namespace xml {

namespace {

// Different names, and declarations: the parser library finds them ever slower, the more there are. A text of
// 20 MB that looks for 100,000 of them in turn takes three seconds.
constexpr int kMaxNames = 100'000;

} // namespace

std::uint32_t Loader::addNode(NodeType type, std::uint32_t nameId) {
    const std::uint32_t id = store_.nodes.addRun(1);
    Open& parent = open_.back();
    store_.nodes[id] = NodeRecord{parent.id, 0, type & 15U, nameId & 0x0FFFFFFFU, 0, 0};
    if (parent.lastChild != 0)
        store_.nodes[parent.lastChild].next = id;
    parent.lastChild = id;
    store_.nodeCount = id + 1;
    return id;
}

void Loader::addValueNode(NodeType type, std::uint32_t nameId, const char* value, std::size_t length) {
    const std::uint32_t id = addNode(type, nameId);
    store_.nodes[id].value = store_.texts.addUtf8(value, length);
}

/// The number of a name; every name of a node or attribute passes here.
std::uint32_t Loader::numberOf(const xmlChar* name) {
    const std::size_t known = names_.size();
    const std::uint32_t id = names_.id(name);
    if (names_.size() > known)
        checkNames();
    return id;
}

/// The library's own dictionary counts: it also holds the names that only declarations use.
void Loader::checkNames() {
    if (xmlDictSize(context_->dict) > kMaxNames)
        fail(kErrorManyNames);
}

unsigned long Loader::byte() const {
    const xmlParserInput* input = context_->inputNr > 0 ? context_->inputTab[0] : nullptr;
    return input ? input->consumed + static_cast<unsigned long>(input->cur - input->base) : 0;
}

void Loader::failNow(Complaint complaint) {
    if (stopped_)
        return;
    stopped_ = true;
    complaint_ = std::move(complaint);
    complaintByte_ = byte();
    feed_->stop();
}

void Loader::fail(int code, const QString& name) {
    Complaint complaint{code};
    complaint.name = name;
    failNow(std::move(complaint));
}

void Loader::libraryError(const xmlError& error) {
    if (error.code == XML_ERR_NO_MEMORY)
        throw std::bad_alloc();
    if (error.level < XML_ERR_FATAL || stopped_)
        return;
    if (error.domain != XML_FROM_PARSER)
        return;
    Complaint complaint{error.code};
    if (error.code == XML_ERR_INTERNAL_ERROR && inDocumentType())
        complaint.code = XML_ERR_DOCTYPE_NOT_FINISHED; // all that the library has to say at its end
    complaint.inEntity = error.ctxt != context_ || context_->inputNr > 1;
    const bool namesAttribute =
        error.code == XML_ERR_ATTRIBUTE_REDEFINED || error.code == XML_ERR_ATTRIBUTE_WITHOUT_VALUE;
    if (namesAttribute)
        complaint.name = QString::fromUtf8(error.str1);
    else if (open_.size() > 1)
        complaint.name = store_.names[store_.nodes[open_.back().id].name];
    if (error.code == XML_ERR_LT_IN_ATTRIBUTE && error.str1)
        complaint.inEntity = true;
    failNow(std::move(complaint));
}

} // namespace xml

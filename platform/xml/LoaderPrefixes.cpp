// SPDX-License-Identifier: GPL-3.0-or-later
// The names of a document by the rules for namespaces, where that is asked for.
#include "platform/xml/Loader.h"
#include <cstring>

namespace xml {

/// Whether what is read stands in an entity and not in the text itself. Behind a piece of markup the parser
/// never stands behind a ';', while the content of an entity is taken apart when the reference was read.
bool Loader::inEntity() const {
    const xmlParserInput* input = context_->input;
    return context_->inputNr > 1 || (input->cur > input->base && input->cur[-1] == ';');
}

void Loader::failByName(int code, const QString& name) {
    Complaint complaint{code};
    complaint.name = name;
    complaint.inEntity = inEntity();
    failNow(std::move(complaint));
}

/// Checks the element at hand, whose attributes are in scratch_.
void Loader::enterScope(std::uint32_t nameId) {
    // A tag that the text ends in has a greater trouble, which is reported next.
    if (*context_->input->cur == 0 && !inEntity())
        return;
    if (const NamespaceFault fault = namespaces_.enter(nameId, scratch_))
        failByName(fault.code, store_.names[fault.name]);
}

/// The name of an element or attribute in a declaration.
void Loader::checkForm(std::uint32_t nameId) {
    const int fault = checksPrefixes() && !stopped_ ? namespaces_.faultOfForm(nameId) : 0;
    if (fault != 0)
        failByName(fault, store_.names[nameId]);
}

/// The name of anything else: it has no prefix, so a colon has no place in it.
void Loader::checkColon(const xmlChar* name) {
    const char* chars = reinterpret_cast<const char*>(name);
    if (checksPrefixes() && std::strchr(chars, ':'))
        failByName(kErrorColon, QString::fromUtf8(chars));
}

} // namespace xml

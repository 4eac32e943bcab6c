// SPDX-License-Identifier: GPL-3.0-or-later
// What the document type declaration brings: defaults of attributes, and entities.
#include "platform/xml/Loader.h"
#include <cstring>
#include <libxml/SAX2.h>

namespace xml {

namespace {

const char* Chars(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

constexpr std::size_t kMaxDeclaration = 65'536; // bytes; no list of names in a real document comes near

QString Text(const xmlChar* text) {
    return QString::fromUtf8(Chars(text));
}

bool IsParameter(int type) {
    return type == XML_INTERNAL_PARAMETER_ENTITY || type == XML_EXTERNAL_PARAMETER_ENTITY;
}

std::size_t Length(const xmlChar* text) {
    return text ? std::strlen(Chars(text)) : 0;
}

bool HasMarkup(const xmlChar* content) {
    return content && std::strchr(Chars(content), '<');
}

/// What a reference to such a content stands for. Markup takes much more time than its mere length in text.
std::size_t ExpansionOf(const xmlChar* content) {
    constexpr std::size_t kMarkup = 8;
    return HasMarkup(content) ? Length(content) * kMarkup : Length(content);
}

} // namespace

void Loader::declareOther() {
    declarationByte_ = byte();
    checkNames();
}

/// Asked at each read. Texts in quotes, comments and instructions may be as long as they like.
bool Loader::isDeclarationTooLong() {
    const auto state = context_->instate;
    if (state != XML_PARSER_DTD)
        declarationByte_ = byte();
    return byte() - declarationByte_ > kMaxDeclaration;
}

void Loader::documentType(const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId) {
    xmlSAX2InternalSubset(context_, name, publicId, systemId);
    const std::uint32_t number = numberOf(name);
    addNode(DOCUMENT_TYPE, number);
    Losses::add(store_.losses.documentTypes);
    checkForm(number);
    declareOther();
}

void Loader::declareElement(const xmlChar* name) {
    declareOther();
    if (checksPrefixes() && std::strchr(Chars(name), ':'))
        checkForm(numberOf(name));
}

void Loader::declareNotation(const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId) {
    declareOther();
    checkColon(name);
    if (!publicId && !systemId)
        failByName(kErrorNotation, Text(name));
}

void Loader::declareAttribute(const xmlChar* element, const xmlChar* attribute, int type,
                              const xmlChar* value) {
    declareOther();
    text::StringPool::Ref ref = 0;
    if (value)
        ref = store_.texts.addUtf8(Chars(value), std::strlen(Chars(value)));
    const std::uint32_t ofElement = numberOf(element), number = numberOf(attribute);
    rules_.add(ofElement, number, type != XML_ATTRIBUTE_CDATA, value ? &ref : nullptr);
    checkForm(ofElement);
    checkForm(number);
}

text::StringPool::Ref Loader::attributeValue(const ElementRules* rules, std::uint32_t nameId,
                                             const char* value) {
    if (!rules || !rules->isTokens(nameId))
        return store_.texts.addUtf8(value, std::strlen(value));
    const std::string joined = JoinedTokens(value);
    return store_.texts.addUtf8(joined.data(), joined.size());
}

void Loader::addDefaults(const ElementRules& rules) {
    writtenIn_.resize(store_.names.size());
    for (const Attribute& written : scratch_)
        writtenIn_[written.nameId] = open_.back().id;
    for (const Attribute& byDefault : rules.defaults) {
        if (writtenIn_[byDefault.nameId] == open_.back().id)
            continue;
        if (!budget_.chargeDefault(store_.texts.view(byDefault.value).length)) {
            fail(kErrorDefaults);
            return;
        }
        scratch_.push_back(byDefault);
    }
}

void Loader::declareEntity(const xmlChar* name, int type, const xmlChar* publicId, const xmlChar* systemId,
                           xmlChar* content) {
    declareOther();
    checkColon(name);
    declared_ = Chars(name);
    if (IsParameter(type) && Length(content) > kMaxDeclaration) {
        fail(kErrorLongDeclaration);
        return;
    }
    if (HasMarkup(content) && !budget_.chargeMarkup(Length(content))) {
        fail(kErrorLongDeclaration);
        return;
    }
    if (content && TagSizeGuard(text::LongText(Text(content))).found()) {
        fail(kErrorManyAttributes);
        return;
    }
    // An external parameter entity is never read: it stands for nothing.
    if (type == XML_EXTERNAL_PARAMETER_ENTITY) {
        xmlChar nothing[] = {0};
        xmlSAX2EntityDecl(context_, name, XML_INTERNAL_PARAMETER_ENTITY, nullptr, nullptr, nothing);
    } else {
        xmlSAX2EntityDecl(context_, name, type, publicId, systemId, content);
    }
}

/// The parser asks for each entity once right after its declaration, to keep the text as it was written.
bool Loader::isJustDeclared(const xmlChar* name) {
    const bool just = inDocumentType() && declared_ == Chars(name);
    declared_.clear();
    return just;
}

void Loader::declareUnparsed(const xmlChar* name, const xmlChar* publicId, const xmlChar* systemId,
                             const xmlChar* notation) {
    declareOther();
    checkColon(name);
    xmlSAX2UnparsedEntityDecl(context_, name, publicId, systemId, notation);
}

xmlEntityPtr Loader::entity(const xmlChar* name) {
    xmlEntityPtr found = xmlSAX2GetEntity(context_, name);
    if (isJustDeclared(name))
        return found;
    if (found && found->etype == XML_INTERNAL_PREDEFINED_ENTITY)
        return found;
    if (!found)
        fail(kErrorUndeclaredEntity, Text(name));
    else if (found->etype == XML_EXTERNAL_GENERAL_PARSED_ENTITY)
        fail(kErrorExternalEntity, Text(name));
    else if (!budget_.charge(ExpansionOf(found->content), byte()))
        fail(kErrorExpansion, Text(name));
    else
        noteReference();
    return stopped_ ? nullptr : found;
}

/// References in the content of an entity are met where the reference to it ends.
void Loader::noteReference() {
    if (inDocumentType() || byte() == referenceByte_)
        return;
    referenceByte_ = byte();
    Losses::add(store_.losses.references);
}

xmlEntityPtr Loader::parameterEntity(const xmlChar* name) {
    xmlEntityPtr found = xmlSAX2GetParameterEntity(context_, name);
    if (isJustDeclared(name) || !found)
        return found;
    if (!budget_.chargeParameter(Length(found->content)))
        fail(kErrorParameterEntity, Text(name));
    return stopped_ ? nullptr : found;
}

} // namespace xml

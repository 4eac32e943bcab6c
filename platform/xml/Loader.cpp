// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/xml/Loader.h"
#include "platform/xml/LibXmlScope.h"
#include "platform/xml/LoaderEvents.h"
#include "platform/xml/XmlDeclaration.h"
#include <cstring>
#include <libxml/parserInternals.h>
#include <new>

namespace xml {

namespace {

constexpr std::size_t kMaxDepth = 5000;
// Different names, and declarations: the parser library finds them ever slower, the more there are. A text of
// 20 MB that looks for 100,000 of them in turn takes three seconds.
constexpr int kMaxNames = 100'000;
constexpr qsizetype kUnitsPerStep = 250'000;

const char* Chars(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

/// The beginning of a text with all of its declaration, if it has one.
QString Head(const text::LongText& text) {
    constexpr qsizetype kBeginning = 16;
    const QString beginning = text.mid(0, kBeginning);
    if (!beginning.contains(QStringLiteral("<?xml")))
        return beginning;
    const qsizetype end = text.indexOf(u"?>", 0, Qt::CaseSensitive);
    return end < 0 ? text.toString() : text.mid(0, std::max(end + 2, kBeginning));
}

bool IsBlankText(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
}

bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}

/// Frees a parser context with the entities that it gathered.
struct FreeContext {
    void operator()(xmlParserCtxt* context) const {
        xmlDoc* entities = context->myDoc;
        context->myDoc = nullptr;
        if (entities)
            xmlFreeDoc(entities);
        xmlFreeParserCtxt(context);
    }
};

} // namespace

std::optional<Complaint> Loader::load(const text::LongText& text) {
    if (text.isEmpty())
        return Complaint{XML_ERR_DOCUMENT_EMPTY};
    const QString head = Head(text);
    XmlDeclaration declaration = ReadXmlDeclaration(head);
    if (declaration.complaint)
        return declaration.complaint;
    open_.push_back(Open{0, 0, false});
    if (declaration.present) {
        const QByteArray data = declaration.data.toUtf8();
        addValueNode(PROCESSING_INSTRUCTION, store_.nameId(QStringLiteral("xml")), data.constData(),
                     static_cast<std::size_t>(data.size()));
    }
    Utf8Feed feed(text, declaration.end);
    feed_ = &feed;
    TagSizeGuard tags(text);
    tags_ = &tags;
    budget_.start(static_cast<std::size_t>(text.size()));
    length_ = text.size();
    nextStep_ = kUnitsPerStep;
    compared_.start(static_cast<std::size_t>(text.size()));
    parse(text.size());
    return complaint_;
}

void Loader::parse(qsizetype length) {
    const LibXmlScope scope(LoaderEvents::Error, this);
    xmlSAXHandler handlers = LoaderEvents::Handlers();
    const std::unique_ptr<xmlParserCtxt, FreeContext> context(
        xmlCreateIOParserCtxt(&handlers, this, LoaderEvents::Read, nullptr, this, XML_CHAR_ENCODING_UTF8));
    if (!context)
        throw std::bad_alloc();
    context_ = context.get();
    xmlCtxtUseOptions(context_, XML_PARSE_HUGE | XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC);
    xmlParseDocument(context_);
    if (outOfMemory_)
        throw std::bad_alloc();
    if (complaint_ && complaint_->place == 0)
        complaint_->place = feed_->place(complaintByte_);
    const qsizetype bad = feed_->badPlace();
    if (bad >= 0 && (!complaint_ || complaint_->place >= bad))
        complaint_ = Complaint{XML_ERR_INVALID_CHAR, bad};
    if (!complaint_ && (!context_->wellFormed || store_.rootId == 0))
        complaint_ = Complaint{kErrorUnexpected, length};
    context_ = nullptr;
}

/// Whether the parser stands in a tag, and not in markup or text that could only look like one.
bool Loader::inTag() const {
    const auto state = context_->instate;
    return state != XML_PARSER_COMMENT && state != XML_PARSER_PI && state != XML_PARSER_CDATA_SECTION &&
           !inDocumentType();
}

void Loader::takeStep() {
    nextStep_ = feed_->next() + kUnitsPerStep;
    try {
        if (step_(feed_->next(), length_))
            return;
    } catch (...) {
        failureOfStep_ = std::current_exception();
    }
    fail(kErrorStopped);
}

int Loader::read(char* buffer, int room) {
    if (step_ && context_ && !stopped_ && feed_->next() >= nextStep_)
        takeStep();
    while (context_ && tags_->found() && feed_->next() > tags_->limit()) {
        if (inTag())
            failNow(Complaint{kErrorManyAttributes, tags_->start()});
        tags_->findNext();
    }
    if (context_ && inDocumentType() && isDeclarationTooLong())
        fail(kErrorLongDeclaration);
    return feed_->read(buffer, room);
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

void Loader::startElement(const xmlChar* name, const xmlChar** attributes) {
    flushText();
    if (open_.size() > kMaxDepth) {
        fail(kErrorDepth);
        return;
    }
    const std::uint32_t number = numberOf(name);
    if (stopped_)
        return;
    const std::uint32_t id = addNode(ELEMENT, number);
    if (open_.size() == 1)
        store_.rootId = id;
    open_.push_back(Open{id, 0, open_.back().preserve});
    scratch_.clear();
    if (attributes || !rules_.isEmpty())
        addAttributes(id, number, attributes);
    if (checksPrefixes() && !stopped_)
        enterScope(number);
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

void Loader::addAttributes(std::uint32_t id, std::uint32_t nameId, const xmlChar** attributes) {
    const ElementRules* rules = rules_.isEmpty() ? nullptr : rules_.of(nameId);
    std::size_t nameLengths = 0;
    for (; attributes && attributes[0]; attributes += 2) {
        const std::uint32_t attribute = numberOf(attributes[0]);
        nameLengths += static_cast<std::size_t>(store_.names[attribute].size());
        scratch_.push_back(Attribute{attribute, attributeValue(rules, attribute, Chars(attributes[1]))});
    }
    if (!compared_.charge(scratch_.size(), nameLengths)) {
        fail(kErrorComparedAttributes);
        return;
    }
    if (rules)
        addDefaults(*rules);
    if (scratch_.size() > kMaxAttributes) {
        fail(kErrorManyAttributes);
        return;
    }
    const auto count = static_cast<std::uint32_t>(scratch_.size());
    if (count == 0)
        return;
    const std::uint32_t first = store_.attributes.addRun(count);
    std::copy(scratch_.begin(), scratch_.end(), &store_.attributes[first]);
    store_.nodes[id].value = first;
    store_.nodes[id].attributeCount = count;
    for (const Attribute& attribute : scratch_) {
        if (attribute.nameId == DocumentStore::kXmlSpaceName)
            open_.back().preserve = store_.texts.view(attribute.value) == u"preserve";
    }
}

void Loader::flushText(bool siblingFollows) {
    if (text_.empty())
        return;
    Open& parent = open_.back();
    const bool blank = IsBlankText(text_);
    parent.hasText = parent.hasText || !blank;
    if (parent.preserve)
        notePreserved(parent, blank);
    else if (blank && siblingFollows && parent.lastChild != 0)
        noteDropped(parent);
    if (parent.preserve || !blank)
        addValueNode(TEXT, DocumentStore::kTextName, text_.data(), text_.size());
    text_.clear();
}

/// Blanks with a line end are layout as long as their parent has no other text, which may still follow.
void Loader::noteDropped(Open& parent) {
    if (text_.find('\n') == std::string::npos)
        Losses::add(store_.losses.blanks);
    else
        ++parent.layouts;
}

void Loader::notePreserved(Open& parent, bool blank) {
    if (parent.respaced || !(blank || IsLineEnd(text_.front()) || IsLineEnd(text_.back())))
        return;
    parent.respaced = true;
    Losses::add(store_.losses.preserved);
}

void Loader::endElement() {
    flushText(false);
    if (open_.back().hasText)
        Losses::add(store_.losses.blanks, open_.back().layouts);
    open_.pop_back();
    if (checksPrefixes())
        namespaces_.leave();
}

void Loader::characters(const xmlChar* text, int length) {
    text_.append(Chars(text), static_cast<std::size_t>(length));
}

void Loader::cdata(const xmlChar* text, int length) {
    flushText();
    open_.back().hasText = true;
    Losses::add(store_.losses.sections);
    addValueNode(CDATA_SECTION, DocumentStore::kCDataName, Chars(text), static_cast<std::size_t>(length));
}

void Loader::comment(const xmlChar* text) {
    if (inDocumentType()) {
        declareOther();
        return;
    }
    flushText();
    addValueNode(COMMENT, DocumentStore::kCommentName, Chars(text), std::strlen(Chars(text)));
}

void Loader::instruction(const xmlChar* target, const xmlChar* data) {
    if (xmlStrcasecmp(target, BAD_CAST "xml") == 0) {
        fail(kErrorReservedTarget, QString::fromUtf8(Chars(target)));
        return;
    }
    checkColon(target);
    if (inDocumentType()) {
        declareOther();
        return;
    }
    flushText();
    const char* value = data ? Chars(data) : "";
    addValueNode(PROCESSING_INSTRUCTION, numberOf(target), value, std::strlen(value));
}

} // namespace xml

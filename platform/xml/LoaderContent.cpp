// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in the document element, and how the text is handed over.
#include "platform/xml/Loader.h"
#include <cstring>

namespace xml {

namespace {

constexpr std::size_t kMaxDepth = 5000;

const char* Chars(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

bool IsBlankText(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; });
}

bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}

} // namespace

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

void Loader::startElement(const xmlChar* name, const xmlChar** attributes) {
    flushText(Follows::Element);
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

void Loader::flushText(Follows next) {
    if (text_.empty())
        return;
    Open& parent = open_.back();
    const bool blank = IsBlankText(text_);
    parent.hasText = parent.hasText || !blank;
    if (parent.preserve)
        notePreserved(parent, blank);
    else if (blank && next != Follows::Nothing && parent.lastChild != 0 && !comesBack(next))
        noteDropped(parent);
    if (parent.preserve || !blank)
        addValueNode(TEXT, DocumentStore::kTextName, text_.data(), text_.size());
    text_.clear();
}

/// Whether these are the very blanks that are written between two siblings: a line end, and before an element
/// a tab for each level.
bool Loader::comesBack(Follows next) const {
    const std::size_t tabs = next == Follows::Element ? open_.size() - 1 : 0;
    return next != Follows::Section && text_ == '\n' + std::string(tabs, '\t');
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
    flushText(Follows::Nothing);
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
    flushText(Follows::Section);
    open_.back().hasText = true;
    Losses::add(store_.losses.sections);
    addValueNode(CDATA_SECTION, DocumentStore::kCDataName, Chars(text), static_cast<std::size_t>(length));
}

void Loader::comment(const xmlChar* text) {
    if (inDocumentType()) {
        declareOther();
        return;
    }
    flushText(Follows::Leaf);
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
    flushText(Follows::Leaf);
    const char* value = data ? Chars(data) : "";
    addValueNode(PROCESSING_INSTRUCTION, numberOf(target), value, std::strlen(value));
}

} // namespace xml
